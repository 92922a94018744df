# Writes FacadeOperations.java: the names of the platform operations that the simulated device
# records (facade members, disk I/O, memory, trace, clock), read from the platform headers, so
# that the demo refuses to force an operation that does not exist.
# usage: cmake -DOUT=<file.java> -DHEADERS=<h1;h2;...> -P FacadeOperations.cmake
set(names)
foreach(header ${HEADERS})
  file(STRINGS ${header} lines REGEX "(esv_zel_|dvu_dio_|emw)[A-Za-z0-9_]*\\(")
  foreach(line ${lines})
    string(REGEX MATCHALL "(esv_zel_|dvu_dio_|emw)[A-Za-z0-9_]*\\(" found "${line}")
    foreach(name ${found})
      string(REGEX REPLACE "\\($" "" name "${name}")
      # Constructors, singletons and observer classes are not operations of the device.
      if(NOT name MATCHES "(_facade|_observer|_get_instance)$")
        list(APPEND names "${name}")
      endif()
    endforeach()
  endforeach()
endforeach()
list(REMOVE_DUPLICATES names)
list(SORT names)
list(JOIN names "\",\n            \"" body)
file(WRITE ${OUT}.tmp "package tarnwick.examples.demo;

/** Generated from the platform headers by examples/FacadeOperations.cmake. */
final class FacadeOperations {
    private FacadeOperations() {}

    /** Every operation of the platform that the simulated device records and can be made to fail. */
    static final java.util.Set<String> NAMES = java.util.Set.of(
            \"${body}\");
}
")
file(COPY_FILE ${OUT}.tmp ${OUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUT}.tmp)
