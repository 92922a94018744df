#!/usr/bin/env bash
# The long stress run, outside the test command: the notification flood of the test suite with
# millions of notifications (two device threads per facade, four Java threads calling module
# natives, -Xcheck:jni), and the four Java threads calling get_scan_data for longer.
#
# usage: scripts/stress.sh [notifications, default 5000000] [scan data seconds, default 120]
# Uses the host build of scripts/test.sh (build/host, or $TOVR_BUILD_DIR/host); builds it when
# it is missing.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=${TOVR_BUILD_DIR:-$root/build}/host
notifications=${1:-5000000}
seconds=${2:-120}
if [ ! -f "$out/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$out" -G Ninja -DTOVR_BUILD_FUZZ=OFF -DTOVR_BUILD_BENCH=OFF >/dev/null || exit 1
fi
cmake --build "$out" -j "${TOVR_JOBS:-2}" >/dev/null || exit 1
status=0
# One test at a time: each uses both cores fully. -V shows the figures the tests print.
TOVR_STRESS_NOTIFICATIONS=$notifications \
  ctest --test-dir "$out" -R '^java\.NotificationStressTest$' -V --timeout 86400 2>&1 |
  grep -E 'stress:|Passed|Failed|=>|WARNING|FAILED'
[ "${PIPESTATUS[0]}" -eq 0 ] || status=1
TOVR_SCAN_THREADS_SECONDS=$seconds \
  ctest --test-dir "$out" -R '^java\.ScanDataThreadsTest$' -V --timeout 86400 2>&1 |
  grep -E 'scan data:|Passed|Failed|=>|WARNING|FAILED'
[ "${PIPESTATUS[0]}" -eq 0 ] || status=1
echo "stress: $([ $status -eq 0 ] && echo passed || echo FAILED)"
exit $status
