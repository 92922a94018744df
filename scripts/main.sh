#!/usr/bin/env bash
# The main job: set up, build the library for the host (simulated device) and run the demo on it:
# the simulated device with sample data, the scan-to-e-mail application written against the
# library's Java modules, and the virtual front panel on http://127.0.0.1:<port>/ (Ctrl-C ends).
#   scripts/main.sh                     walk through scan to e-mail, then serve the panel
#   scripts/main.sh --port 8080         the panel on this port (default: a free one, printed)
#   scripts/main.sh --no-panel          only the walk through
#   scripts/main.sh --scenario FILE     play a scenario; exit 0 when every expectation held
#   scripts/main.sh --time [SECONDS]    the first example: calendar fields of a time
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TOVR_BUILD_DIR:-$root/build/main}
jobs=${TOVR_JOBS:-$(nproc)}
"$root/scripts/setup.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOVR_BUILD_TESTS=OFF -DTOVR_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j "$jobs" >/dev/null
java=/usr/lib/jvm/java-17-openjdk-amd64/bin/java
cp="$build/java/tovr-examples.jar:$build/java/tovrCMT.jar:$build/java/tovrsim.jar"
if [ "${1:-}" = "--time" ]; then
  shift
  exec "$java" -Xcheck:jni -Djava.library.path="$build" -cp "$cp" tarnwick.examples.TimeDemo "$@"
fi
exec "$java" -Xcheck:jni -Djava.library.path="$build" -cp "$cp" \
  tarnwick.examples.demo.DeviceDemo --root "$build/demo-device" "$@"
