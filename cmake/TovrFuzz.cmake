# tovr_add_fuzz_target(<name>
#     SOURCES <file>...     the libFuzzer entry point and the library sources it reaches (no JNI)
#     INCLUDES <folder>...
#     RUNS <n> MAX_LEN <bytes>
#     [CORPUS <folder>])    seed inputs, only read; new inputs go to a folder of the build tree
#
# Built with clang's libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer whatever compiler
# builds the rest (each source its own object, headers followed through a dependency file); the
# CTest entry fuzz_<name> runs a fixed number of inputs from a fixed seed.
function(tovr_add_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "RUNS;MAX_LEN;CORPUS" "SOURCES;INCLUDES")
  set(flags -std=c++17 -g -O1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined)
  foreach(dir ${arg_INCLUDES})
    list(APPEND flags -I${dir})
  endforeach()
  set(dir ${CMAKE_CURRENT_BINARY_DIR}/${name}.dir)
  set(objects)
  foreach(source ${arg_SOURCES})
    get_filename_component(base ${source} NAME_WE)
    set(object ${dir}/${base}.o)
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${dir}
      COMMAND ${TOVR_CLANGXX} ${flags} -MD -MF ${object}.d -c ${source} -o ${object}
      DEPENDS ${source}
      DEPFILE ${object}.d
      COMMENT "clang libFuzzer: ${base}.cpp"
      VERBATIM)
    list(APPEND objects ${object})
  endforeach()
  set(binary ${CMAKE_CURRENT_BINARY_DIR}/${name}_fuzz)
  add_custom_command(
    OUTPUT ${binary}
    COMMAND ${TOVR_CLANGXX} ${flags} ${objects} -o ${binary}
    DEPENDS ${objects}
    COMMENT "clang libFuzzer -> ${name}_fuzz"
    VERBATIM)
  add_custom_target(${name}_fuzz_build ALL DEPENDS ${binary})
  set(run ${binary} -runs=${arg_RUNS} -seed=1 -max_len=${arg_MAX_LEN})
  if(arg_CORPUS)
    set(scratch ${CMAKE_CURRENT_BINARY_DIR}/${name}_scratch)
    add_test(NAME fuzz_${name} COMMAND sh -c "mkdir -p \"$1\" && shift && exec \"$@\"" sh
      ${scratch} ${run} ${scratch} ${arg_CORPUS})
  else()
    add_test(NAME fuzz_${name} COMMAND ${run})
  endif()
endfunction()
