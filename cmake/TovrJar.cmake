# tovr_add_jar(<target> <jar>
#              SOURCES <folder>...     every .java below these folders goes into the jar
#              [CLASSPATH <entry>...]  jars and class folders it is compiled against
#              [DEPENDS <file>...]     further files whose change remakes the jar
#              [AFTER <target>...]     targets built first: what generates its sources or
#                                      makes a jar of its class path
#              [NOT_ALL])              built only on demand
#
# javac-jar.sh writes a dependency file naming every source it compiled and every jar of the
# class path, so a jar follows generated sources (known only after generation) and the jars it
# was compiled against. The class path jars are therefore never listed as DEPENDS: under the
# Makefile generator a file made in the same folder would copy its rule into this target and
# run it twice at once; the first build is ordered by AFTER instead. Generated sources need one
# more thing: Ninja decides what is out of date before it runs anything, and a file that no rule
# declares (a generated class) is seen as it was then; so a jar of generated classes lists in
# DEPENDS a file that their generator declares and rewrites with them (SWIG's wrapper source),
# made by a target in AFTER. Source folders of the source tree are globbed, so that a new file
# reconfigures and remakes the jar.
function(tovr_add_jar target jar)
  cmake_parse_arguments(PARSE_ARGV 2 arg "NOT_ALL" "" "SOURCES;CLASSPATH;DEPENDS;AFTER")
  set(sources)
  foreach(dir ${arg_SOURCES})
    cmake_path(IS_PREFIX CMAKE_BINARY_DIR "${dir}" NORMALIZE generated)
    cmake_path(IS_PREFIX CMAKE_SOURCE_DIR "${dir}" NORMALIZE in_source)
    if(in_source AND NOT generated)
      file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.java)
      list(APPEND sources ${found})
    endif()
  endforeach()
  if(arg_CLASSPATH)
    string(JOIN ":" classpath ${arg_CLASSPATH})
  else()
    set(classpath -)
  endif()
  get_filename_component(name ${jar} NAME)
  add_custom_command(
    OUTPUT ${jar}
    COMMAND ${TOVR_JAVAC_JAR} -MF ${jar}.d ${JAVAC_EXECUTABLE} ${JAR_EXECUTABLE} ${jar} ${classpath}
            ${arg_SOURCES}
    DEPENDS ${sources} ${arg_DEPENDS} ${TOVR_JAVAC_JAR}
    DEPFILE ${jar}.d
    COMMENT "javac -> ${name}"
    VERBATIM)
  if(arg_NOT_ALL)
    add_custom_target(${target} DEPENDS ${jar})
  else()
    add_custom_target(${target} ALL DEPENDS ${jar})
  endif()
  if(arg_AFTER)
    add_dependencies(${target} ${arg_AFTER})
  endif()
endfunction()
