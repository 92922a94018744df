#!/usr/bin/env bash
# Every test: set up, then build and run
#   host    the host suite: native tests, native tests in a real JVM, the JUnit classes (all JVMs
#           with -Xcheck:jni), the export check, fuzz runs, scenarios and the panel's tests;
#   asan    the host suite built with AddressSanitizer+UndefinedBehaviorSanitizer, the JVMs with
#           the sanitizer's runtime preloaded;
#   tsan    the native tests under ThreadSanitizer;
#   ppc     the native suite cross-built for the 32-bit big-endian PowerPC device, under qemu-ppc;
#   device  the device build (platform symbols left to the loader) must compile and link;
#   stale   a header change in a scratch build reruns SWIG for exactly the modules that include it.
# Builds run one after another at full parallelism; each stage's tests start as soon as its build
# is done, alongside the next build, so the two cores stay busy. A summary at the end gives each
# stage's build and test time and its counts; the last line is "total: N passed, M failed".
#
# usage: scripts/test.sh [--quick]
#   --quick   the host suite only (native, native in a JVM, JUnit, exports) in build/host: the
#             edit-test loop. The full command is what CI runs.
# TOVR_BUILD_DIR moves the build trees (default build/), TOVR_JOBS sets the parallelism.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=${TOVR_BUILD_DIR:-$root/build}
jobs=${TOVR_JOBS:-$(nproc)}
quick=0
case ${1:-} in
  --quick) quick=1 ;;
  "") ;;
  *) echo "usage: scripts/test.sh [--quick]" >&2; exit 2 ;;
esac
started=$(date +%s%3N)
"$root/scripts/setup.sh" || exit 1
setup_ms=$(( $(date +%s%3N) - started ))

mkdir -p "$out"
out=$(cd "$out" && pwd)
state=$out/.test-state
rm -rf "$state"
mkdir -p "$state"
ppc_toolchain=$root/cmake/toolchain-powerpc-linux-gnu.cmake

now() { date +%s%3N; }                            # milliseconds
since() { echo $(( $(now) - $1 )); }
record() { echo "$2" > "$state/$1"; }           # name, value
recorded() { cat "$state/$1" 2>/dev/null || echo 0; }
seconds() { printf '%d.%d' $(( $1 / 1000 )) $(( $1 % 1000 / 100 )); }   # milliseconds -> "12.3"

# A build tree made by another generator is made again (CMake cannot switch a tree's generator).
configure() {  # dir, cmake args...
  local dir=$1
  shift
  if [ -f "$dir/CMakeCache.txt" ] && ! grep -q '^CMAKE_GENERATOR:INTERNAL=Ninja$' "$dir/CMakeCache.txt"; then
    rm -rf "$dir"
  fi
  cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
}

# ---- the stages' builds, each: configure and build, log in <out>/<name>.build.log
build_stage() {  # name
  local name=$1 dir=$out/$1 log=$out/$1.build.log
  local -a args
  case $name in
    host)   args=(-DTOVR_BUILD_TESTS=ON -DTOVR_BUILD_BENCH=ON -DTOVR_BUILD_FUZZ=ON) ;;
    asan)   args=(-DTOVR_SANITIZE=address -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF) ;;
    tsan)   args=(-DTOVR_SANITIZE=thread -DTOVR_BUILD_JAVA=OFF -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF) ;;
    ppc)    args=(-DCMAKE_TOOLCHAIN_FILE="$ppc_toolchain" -DTOVR_OPTIMIZE_SIM=OFF) ;;
    device) args=(-DTOVR_PLATFORM=device -DCMAKE_TOOLCHAIN_FILE="$ppc_toolchain") ;;
  esac
  local t0 target=()
  t0=$(now)
  # The quick loop builds what the host suite needs, not the fuzz targets and benchmarks.
  [ $quick -eq 1 ] && target=(--target tovr_host_suite)
  if configure "$dir" "${args[@]}" >"$log" 2>&1 &&
     cmake --build "$dir" -j "$jobs" "${target[@]}" >>"$log" 2>&1; then
    record "$name.build" ok
  else
    record "$name.build" failed
  fi
  record "$name.build.time" "$(since "$t0")"
}

wait_built() {  # name: waits for its build; 0 when it succeeded
  while [ ! -f "$state/$1.build" ]; do sleep 0.2; done
  [ "$(recorded "$1.build")" = ok ]
}

# ---- the stages' tests: ctest with a JUnit report, counted from the report
ctest_stage() {  # name, ctest args...
  local name=$1 dir=$out/$1
  shift
  local log=$out/$name.ctest.log junit=$out/$name.junit.xml
  rm -f "$junit"
  ctest --test-dir "$dir" --output-on-failure -j "$jobs" --output-junit "$junit" "$@" >"$log" 2>&1
  python3 - "$junit" "$state/$name.counts" <<'EOF'
# Counts from CTest's JUnit report; a failed test's name and the end of its output.
import sys, xml.etree.ElementTree as ET
try:
    cases = list(ET.parse(sys.argv[1]).getroot().iter("testcase"))
except (OSError, ET.ParseError) as e:
    print("no test report:", e)
    cases = []
failed = [c for c in cases if c.get("status") == "fail" or c.find("failure") is not None]
skipped = [c for c in cases if c not in failed and (c.get("status") in ("notrun", "disabled") or c.find("skipped") is not None)]
for c in failed:
    out = (c.findtext("system-out") or "").rstrip().splitlines()
    print("--- FAILED: %s" % c.get("name"))
    print("\n".join("    " + line for line in out[-40:]))
with open(sys.argv[2], "w") as f:
    # No report at all is a failure of the stage.
    f.write("%d %d %d\n" % (len(cases) - len(failed) - len(skipped), len(failed) or (0 if cases else 1), len(skipped)))
EOF
}

# One check that is one test: stale and device.
check_stage() {  # name, command...
  local name=$1 log=$out/$1.check.log
  shift
  if "$@" >"$log" 2>&1; then
    echo "1 0 0" >"$state/$name.counts"
  else
    echo "0 1 0" >"$state/$name.counts"
    echo "--- $name: FAILED (log in $log)"
    tail -40 "$log"
  fi
}

test_stage() {  # name
  local name=$1 t0
  if ! wait_built "$name"; then
    echo "=== $name: build FAILED (log in $out/$name.build.log)"
    tail -60 "$out/$name.build.log"
    echo "0 1 0" >"$state/$name.counts"
    record "$name.test.time" 0
    return
  fi
  t0=$(now)
  case $name in
    host)
      if [ $quick -eq 1 ]; then
        ctest_stage host -R '^(native\.|native_jvm\.|java\.|exports$)'
      else
        ctest_stage host
      fi ;;
    # Native tests with leak detection; the JVMs' options come from tests/CMakeLists.txt.
    asan) ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest_stage asan ;;
    # The suppressions name only the races the library has on purpose.
    tsan) TSAN_OPTIONS="suppressions=$root/tests/sanitizer/tsan.supp:second_deadlock_stack=1" ctest_stage tsan ;;
    ppc) ctest_stage ppc ;;
    device) check_stage device "$root/tests/tools/check-device-link.sh" "$out/device/libtovrCMT.so" ;;
  esac
  record "$name.test.time" "$(since "$t0")"
  local passed failed skipped
  read -r passed failed skipped <"$state/$name.counts"
  printf '=== %s: %d passed, %d failed%s (build %s s, tests %s s)\n' "$name" "$passed" "$failed" \
    "$([ "$skipped" -eq 0 ] || echo ", $skipped skipped")" "$(seconds "$(recorded "$name.build.time")")" \
    "$(seconds "$(recorded "$name.test.time")")"
}

if [ $quick -eq 1 ]; then
  stages=(host)
  build_stage host
  test_stage host
else
  # Builds in this order (the device build after the PowerPC one, whose objects it shares through
  # the compiler cache); tests in the same order, each after its build.
  stages=(host asan ppc device tsan)
  ( for s in "${stages[@]}"; do build_stage "$s"; done ) &
  builder=$!
  test_stage host
  # The stale-build check compiles no C++ (SWIG and javac only): it runs beside the builds.
  t0=$(now)
  check_stage stale "$root/tests/tools/check-stale-build.sh" "$root" "$out/stale" "$jobs"
  record stale.test.time "$(since "$t0")"
  echo "=== stale build: a header change reruns SWIG for exactly the modules that include it"
  sed -n 's/^/    /; /: SWIG reran/p' "$out/stale.check.log"
  for s in asan ppc device tsan; do test_stage "$s"; done
  wait "$builder"
  stages=(host stale asan ppc device tsan)
fi

# ---- summary
echo
printf '%-8s %8s %8s %8s %8s %8s\n' stage build tests passed failed skipped
passed=0 failed=0 skips=0
for s in "${stages[@]}"; do
  read -r p f k <"$state/$s.counts"
  passed=$((passed + p)) failed=$((failed + f)) skips=$((skips + k))
  printf '%-8s %7ss %7ss %8d %8d %8d\n' "$s" "$(seconds "$(recorded "$s.build.time")")" \
    "$(seconds "$(recorded "$s.test.time")")" "$p" "$f" "$k"
done
printf 'setup %s s; whole run %s s (builds and tests overlap)\n' "$(seconds "$setup_ms")" "$(seconds "$(since "$started")")"
[ "$skips" -eq 0 ] || echo "skipped: $skips (see the ctest logs for why)"
echo "total: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
