# Generates one Java module's wrapper source and Java classes with SWIG.
# The rule belongs to the one target that compiles the wrapper source. A jar made from the Java
# classes depends on the SWIG inputs (property TOVR_SWIG_INPUTS) and is ordered after that
# target: listing the generated files in a second target would run the rule twice in parallel
# under the Makefile generator, one run deleting the folder the other compiles.
# The interface file's first line reads "// package <java.package>"; the module class is the
# interface's %module name followed by "JNI".
function(tovr_swig_module iface java_root out_source)
  get_filename_component(name ${iface} NAME_WE)
  file(STRINGS ${iface} package_line LIMIT_COUNT 1 REGEX "^// package ")
  if(NOT package_line)
    message(FATAL_ERROR "${iface}: first line must be '// package <java.package>'")
  endif()
  string(REGEX REPLACE "^// package +" "" package "${package_line}")
  string(REPLACE "." "/" package_dir ${package})
  set(java_dir ${java_root}/${name})
  set(source ${CMAKE_BINARY_DIR}/wrapper/${name}_wrap.cxx)
  set(header_globs ${CMAKE_SOURCE_DIR}/platform/include/*.h ${CMAKE_SOURCE_DIR}/wrapper/*.i)
  set(include_flags -I${CMAKE_SOURCE_DIR}/wrapper -I${CMAKE_SOURCE_DIR}/platform/include)
  foreach(dir ${TOVR_NATIVE_DIRS})
    list(APPEND header_globs ${CMAKE_SOURCE_DIR}/${dir}/*.h)
    list(APPEND include_flags -I${CMAKE_SOURCE_DIR}/${dir})
  endforeach()
  file(GLOB headers CONFIGURE_DEPENDS ${header_globs})
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/wrapper
    # The package folder belongs to this module alone: stale classes of removed types go.
    COMMAND ${CMAKE_COMMAND} -E remove_directory ${java_dir}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${java_dir}
    COMMAND ${SWIG_EXECUTABLE} -c++ -java -package ${package} -outdir ${java_dir}
            ${include_flags}
            -o ${source} ${iface}
    DEPENDS ${iface} ${CMAKE_SOURCE_DIR}/wrapper/tovr_conventions.i ${headers}
    COMMENT "SWIG ${name} -> ${package}"
    VERBATIM)
  set(${out_source} ${source} PARENT_SCOPE)
  set_property(GLOBAL APPEND PROPERTY TOVR_SWIG_INPUTS
    ${iface} ${CMAKE_SOURCE_DIR}/wrapper/tovr_conventions.i ${headers})
endfunction()
