#!/usr/bin/env bash
# The main job: set up, build the library for the host (simulated device) and run the example
# program: it loads libtovrCMT.so into a JVM, starts it and prints calendar fields and the
# local offset through cmt_time.   usage: scripts/main.sh [seconds since 1970]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TOVR_BUILD_DIR:-$root/build/main}
jobs=${TOVR_JOBS:-$(nproc)}
"$root/scripts/setup.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOVR_BUILD_TESTS=OFF -DTOVR_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j "$jobs" >/dev/null
java=/usr/lib/jvm/java-17-openjdk-amd64/bin/java
LD_LIBRARY_PATH="$build" "$java" -Xcheck:jni -Djava.library.path="$build" \
  -cp "$build/java/tovr-examples.jar:$build/java/tovrCMT.jar" tarnwick.examples.TimeDemo "$@"
