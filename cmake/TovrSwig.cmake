# Generates one Java module's wrapper source and Java classes with SWIG.
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
  set(stamp ${CMAKE_BINARY_DIR}/wrapper/${name}.java.stamp)
  file(GLOB headers CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/common/*.h ${CMAKE_SOURCE_DIR}/event/*.h ${CMAKE_SOURCE_DIR}/job/*.h
    ${CMAKE_SOURCE_DIR}/device/*.h ${CMAKE_SOURCE_DIR}/platform/include/*.h)
  add_custom_command(
    OUTPUT ${source} ${stamp}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/wrapper
    # The package folder belongs to this module alone: stale classes of removed types go.
    COMMAND ${CMAKE_COMMAND} -E remove_directory ${java_dir}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${java_dir}
    COMMAND ${SWIG_EXECUTABLE} -c++ -java -package ${package} -outdir ${java_dir}
            -I${CMAKE_SOURCE_DIR}/wrapper -I${CMAKE_SOURCE_DIR}/platform/include
            -o ${source} ${iface}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${iface} ${CMAKE_SOURCE_DIR}/wrapper/tovr_conventions.i ${headers}
    COMMENT "SWIG ${name} -> ${package}"
    VERBATIM)
  set(${out_source} ${source} PARENT_SCOPE)
  set_property(GLOBAL APPEND PROPERTY TOVR_JAVA_STAMPS ${stamp})
endfunction()
