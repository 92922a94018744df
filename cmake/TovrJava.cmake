# The Java side: SWIG's module and proxy classes with the host framework classes the library
# calls back (tovrCMT.jar), and the simulated device's control classes (tovrsim.jar).
find_program(JAVAC_EXECUTABLE javac PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)
find_program(JAR_EXECUTABLE jar PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)
find_program(JAVA_EXECUTABLE java PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)

set(TOVR_JAVAC_JAR ${CMAKE_SOURCE_DIR}/cmake/javac-jar.sh)
include(${CMAKE_SOURCE_DIR}/cmake/TovrJar.cmake)

# Every jar is made by tovr_add_jar (TovrJar.cmake). tovrCMT.jar: SWIG's module classes (made by
# tovr_wrappers, so the jar needs none of the C++ compiled) and the host framework classes; the
# module list changes when a module comes or goes. The jar also depends on the wrapper sources,
# which each SWIG run rewrites with its classes: Ninja decides what is out of date before the
# build starts, from files it knows to be made, and a module's classes are not among them.
set(TOVR_JAR ${CMAKE_BINARY_DIR}/java/tovrCMT.jar)
tovr_add_jar(tovr_jar ${TOVR_JAR} SOURCES ${TOVR_MODULE_JAVA_DIRS} ${CMAKE_SOURCE_DIR}/java/src
  DEPENDS ${TOVR_MODULE_LIST} ${TOVR_WRAPPER_SOURCES} AFTER tovr_wrappers)

if(TOVR_PLATFORM STREQUAL "host")
  set(TOVR_SIM_JAR ${CMAKE_BINARY_DIR}/java/tovrsim.jar)
  tovr_add_jar(tovr_sim_jar ${TOVR_SIM_JAR} SOURCES ${CMAKE_SOURCE_DIR}/platform/sim
    CLASSPATH ${TOVR_JAR} AFTER tovr_jar)

  # JNI side of the control classes: test and tool code, never part of libtovrCMT.so.
  file(GLOB_RECURSE sim_jni_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/sim/*_jni.cpp)
  add_library(tovrsimctl SHARED ${sim_jni_sources})
  target_include_directories(tovrsimctl PRIVATE ${TOVR_JNI_INCLUDE_DIRS})
  target_link_libraries(tovrsimctl PRIVATE tovrsim)
  if(NOT TOVR_OPTIMIZE_SIM)
    target_compile_options(tovrsimctl PRIVATE ${TOVR_SIM_TEST_OPTIMISATION})
  endif()
  tovr_precompile_headers(tovrsimctl <jni.h> ${TOVR_SIM_PRECOMPILED})
endif()
