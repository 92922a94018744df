# A jar's consumers order themselves on its target (add_dependencies). One in the same folder
# never lists the jar file in its DEPENDS, only what the jar is made from: under the Makefile
# generator a file dependency copies the jar's rule into the consumer and runs it concurrently.
#
# The Java side: SWIG's module and proxy classes with the host framework classes the library
# calls back (tovrCMT.jar), and the simulated device's control classes (tovrsim.jar).
find_program(JAVAC_EXECUTABLE javac PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)
find_program(JAR_EXECUTABLE jar PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)
find_program(JAVA_EXECUTABLE java PATHS ${JAVA_HOME}/bin NO_DEFAULT_PATH REQUIRED)

set(TOVR_JAVAC_JAR ${CMAKE_SOURCE_DIR}/cmake/javac-jar.sh)
set(TOVR_JAR ${CMAKE_BINARY_DIR}/java/tovrCMT.jar)
# The jars follow the Java sources they were made from through their dependency files (the
# generated classes of each module, rewritten when SWIG reruns that module); the module list
# changes when a module comes or goes.
file(GLOB_RECURSE framework_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/java/src/*.java)
add_custom_command(
  OUTPUT ${TOVR_JAR}
  COMMAND ${TOVR_JAVAC_JAR} -MF ${TOVR_JAR}.d ${JAVAC_EXECUTABLE} ${JAR_EXECUTABLE} ${TOVR_JAR} -
          ${TOVR_MODULE_JAVA_DIRS} ${CMAKE_SOURCE_DIR}/java/src
  DEPENDS ${TOVR_MODULE_LIST} ${framework_sources} ${TOVR_JAVAC_JAR}
  DEPFILE ${TOVR_JAR}.d
  COMMENT "javac -> tovrCMT.jar"
  VERBATIM)
add_custom_target(tovr_jar ALL DEPENDS ${TOVR_JAR})
add_dependencies(tovr_jar tovrCMT)

if(TOVR_PLATFORM STREQUAL "host")
  set(TOVR_SIM_JAR ${CMAKE_BINARY_DIR}/java/tovrsim.jar)
  file(GLOB_RECURSE sim_java_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/sim/*.java)
  add_custom_command(
    OUTPUT ${TOVR_SIM_JAR}
    COMMAND ${TOVR_JAVAC_JAR} -MF ${TOVR_SIM_JAR}.d ${JAVAC_EXECUTABLE} ${JAR_EXECUTABLE} ${TOVR_SIM_JAR} ${TOVR_JAR}
            ${CMAKE_SOURCE_DIR}/platform/sim
    # tovrCMT.jar comes in through the dependency file (its class path).
    DEPENDS ${sim_java_sources} ${TOVR_JAVAC_JAR}
    DEPFILE ${TOVR_SIM_JAR}.d
    COMMENT "javac -> tovrsim.jar"
    VERBATIM)
  add_custom_target(tovr_sim_jar ALL DEPENDS ${TOVR_SIM_JAR})
  # Ordered on the target, not on the jar file: a file dependency would copy the jar's rule
  # into this target.
  add_dependencies(tovr_sim_jar tovr_jar)

  # JNI side of the control classes: test and tool code, never part of libtovrCMT.so.
  file(GLOB_RECURSE sim_jni_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/sim/*_jni.cpp)
  add_library(tovrsimctl SHARED ${sim_jni_sources})
  target_include_directories(tovrsimctl PRIVATE ${TOVR_JNI_INCLUDE_DIRS})
  target_link_libraries(tovrsimctl PRIVATE tovrsim)
endif()
