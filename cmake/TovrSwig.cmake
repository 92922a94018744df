# Generates one Java module's wrapper source and Java classes with SWIG.
# SWIG writes a dependency file (-MMD -MF) listing the interface pieces and headers it read, so a
# header change reruns exactly the modules that include it. The rule is run by one target (the
# library's tovr_wrappers, or the one library that compiles the source); every other target that
# lists the source or reads the classes is ordered after that one: two independent targets
# listing the generated files would run the rule twice at once under the Makefile generator, one
# run deleting the folder the other compiles. A jar made from the Java classes follows the
# classes themselves (its own dependency file, see javac-jar.sh).
# -doxygen carries the /** */ comments of the headers and interface files into the Java classes
# (the API reference); the generated code is the same with or without it.
# The interface file's first line reads "// package <java.package>"; the module class is the
# interface's %module name followed by "JNI". The folders of TOVR_NATIVE_DIRS are SWIG's
# include path.
function(tovr_swig_module iface java_root out_source)
  get_filename_component(name ${iface} NAME_WE)
  file(STRINGS ${iface} package_line LIMIT_COUNT 1 REGEX "^// package ")
  if(NOT package_line)
    message(FATAL_ERROR "${iface}: first line must be '// package <java.package>'")
  endif()
  string(REGEX REPLACE "^// package +" "" package "${package_line}")
  set(java_dir ${java_root}/${name})
  set(source ${CMAKE_BINARY_DIR}/wrapper/${name}_wrap.cxx)
  set(depfile ${CMAKE_BINARY_DIR}/wrapper/${name}_wrap.d)
  set(include_flags -I${CMAKE_SOURCE_DIR}/wrapper -I${CMAKE_SOURCE_DIR}/platform/include)
  foreach(dir ${TOVR_NATIVE_DIRS})
    list(APPEND include_flags -I${CMAKE_SOURCE_DIR}/${dir})
  endforeach()
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/wrapper
    # The package folder belongs to this module alone: stale classes of removed types go.
    COMMAND ${CMAKE_COMMAND} -E remove_directory ${java_dir}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${java_dir}
    COMMAND ${SWIG_EXECUTABLE} -c++ -java -doxygen -package ${package} -outdir ${java_dir}
            ${include_flags} -MMD -MF ${depfile}
            -o ${source} ${iface}
    DEPENDS ${iface}
    DEPFILE ${depfile}
    COMMENT "SWIG ${name} -> ${package}"
    VERBATIM)
  set(${out_source} ${source} PARENT_SCOPE)
endfunction()
