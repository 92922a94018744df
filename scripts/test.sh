#!/usr/bin/env bash
# Every test: set up, then build and run
#   host    the host suite: native tests, native tests in a real JVM, the JUnit classes (all JVMs
#           with -Xcheck:jni), the export check, fuzz runs, scenarios and the panel's tests;
#   stale   a header change in a scratch build reruns SWIG for exactly the modules that include
#           it (under Make and Ninja);
#   asan    the host suite built with AddressSanitizer+UndefinedBehaviorSanitizer, the JVMs with
#           the sanitizer's runtime preloaded;
#   ppc     the native suite cross-built for the 32-bit big-endian PowerPC device, under qemu-ppc;
#   device  the device build (platform symbols left to the loader) must compile and link;
#   tsan    the native tests under ThreadSanitizer.
# The builds run one after another, each at full parallelism; a stage's tests start as soon as its
# build is done, beside the next build and the other stages' tests, so that the cores stay busy.
# The summary gives each stage's build and test time, the CPU time they took and their counts
# (from CTest's JUnit report); the last line is "total: N passed, M failed".
#
# usage: scripts/test.sh [--quick]
#   --quick   the host suite only (native, native in a JVM, JUnit, the export check) in
#             build/host: the edit-test loop. CI runs the full command.
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
now() { date +%s%3N; }                                                   # milliseconds
started=$(now)
"$root/scripts/setup.sh" || exit 1
setup_ms=$(( $(now) - started ))

mkdir -p "$out"
out=$(cd "$out" && pwd)
state=$out/.test-state
rm -rf "$state"
mkdir -p "$state"
ppc_toolchain=$root/cmake/toolchain-powerpc-linux-gnu.cmake

record() { echo "$2" >"$state/$1"; }                                    # name, value
recorded() { cat "$state/$1" 2>/dev/null || echo 0; }
seconds() { printf '%d.%d' $(( $1 / 1000 )) $(( $1 % 1000 / 100 )); }   # milliseconds -> "12.3"
# Runs a command with its output in a log; records its wall and CPU time (user + system, its
# children included) in milliseconds under <key>.time and <key>.cpu.
timed() {  # key, log, command...
  local key=$1 log=$2 t0 rc TIMEFORMAT='%3U %3S'
  shift 2
  t0=$(now)
  { time "$@" >>"$log" 2>&1; } 2>"$state/$key.times"
  rc=$?
  record "$key.time" $(( $(now) - t0 ))
  record "$key.cpu" "$(awk '{printf "%d", ($1 + $2) * 1000}' "$state/$key.times")"
  return $rc
}

# ---- builds: configure and build, log in <out>/<stage>.build.log
# A tree made by another generator is made again (CMake cannot switch a tree's generator).
# The build type's optimisation with line tables only (-g1): every stack a failure prints still
# names file and line, and the library and the simulated device compile in a quarter less time
# than with full debug information (-g). The PowerPC and device trees share these flags, so that
# the device build takes the PowerPC tree's objects from the compiler cache.
line_tables="-O2 -g1 -DNDEBUG"
configure_and_build() {  # dir, target args, --, cmake args...
  local dir=$1 target=() 
  shift
  while [ "$1" != -- ]; do target+=("$1"); shift; done
  shift
  if [ -f "$dir/CMakeCache.txt" ] && ! grep -q '^CMAKE_GENERATOR:INTERNAL=Ninja$' "$dir/CMakeCache.txt"; then
    rm -rf "$dir"
  fi
  cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="$line_tables" -DCMAKE_C_FLAGS_RELWITHDEBINFO="$line_tables" "$@" &&
    cmake --build "$dir" -j "$jobs" "${target[@]}"
}

build_stage() {  # stage
  local name=$1 args target=()
  case $name in
    host)   args=(-DTOVR_BUILD_TESTS=ON -DTOVR_BUILD_BENCH=ON -DTOVR_BUILD_FUZZ=ON) ;;
    asan)   args=(-DTOVR_SANITIZE=address -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF) ;;
    tsan)   args=(-DTOVR_SANITIZE=thread -DTOVR_BUILD_JAVA=OFF -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF) ;;
    ppc)    args=(-DCMAKE_TOOLCHAIN_FILE="$ppc_toolchain" -DTOVR_OPTIMIZE_SIM=OFF) ;;
    device) args=(-DTOVR_PLATFORM=device -DCMAKE_TOOLCHAIN_FILE="$ppc_toolchain") ;;
  esac
  # The quick loop builds what the host suite needs, not the fuzz targets and benchmarks.
  [ $quick -eq 1 ] && target=(--target tovr_host_suite)
  rm -f "$out/$name.build.log"
  if timed "$name.build" "$out/$name.build.log" configure_and_build "$out/$name" "${target[@]}" -- "${args[@]}"; then
    record "$name.built" ok
  else
    record "$name.built" failed
  fi
}

# ---- tests. Each stage writes "<passed> <failed> <skipped>" to <stage>.counts and what a reader
# needs of its failures to <stage>.report.
junit_counts() {  # stage, JUnit report of CTest
  python3 - "$2" "$state/$1.counts" >"$state/$1.report" <<'EOF'
import sys, xml.etree.ElementTree as ET
try:
    cases = list(ET.parse(sys.argv[1]).getroot().iter("testcase"))
except (OSError, ET.ParseError) as e:
    print("no test report:", e)
    cases = []
failed = [c for c in cases if c.get("status") == "fail" or c.find("failure") is not None]
skipped = [c for c in cases
           if c not in failed and (c.get("status") in ("notrun", "disabled") or c.find("skipped") is not None)]
for c in failed:
    out = (c.findtext("system-out") or "").rstrip().splitlines()
    print("--- FAILED: %s" % c.get("name"))
    print("\n".join("    " + line for line in out[-40:]))
with open(sys.argv[2], "w") as f:
    # A stage without a report (nothing ran) is a failure.
    f.write("%d %d %d\n" % (len(cases) - len(failed) - len(skipped), len(failed) or (0 if cases else 1),
                            len(skipped)))
EOF
}

ctest_stage() {  # stage, ctest args...
  local name=$1
  shift
  rm -f "$out/$name.junit.xml" "$out/$name.ctest.log"
  timed "$name.test" "$out/$name.ctest.log" ctest --test-dir "$out/$name" --output-on-failure -j "$jobs" \
    --output-junit "$out/$name.junit.xml" "$@"
  junit_counts "$name" "$out/$name.junit.xml"
}

check_stage() {  # stage, command...: a check that counts as one test
  local name=$1 log=$out/$1.check.log
  shift
  rm -f "$log"
  if timed "$name.test" "$log" "$@"; then
    echo "1 0 0" >"$state/$name.counts"
  else
    echo "0 1 0" >"$state/$name.counts"
    { echo "--- FAILED: $name (log in $log)"; tail -40 "$log"; } >"$state/$name.report"
  fi
}

stale_check() {  # under CMake's default generator (Make) and under Ninja
  "$root/tests/tools/check-stale-build.sh" "$root" "$out/stale" "$jobs" &&
    "$root/tests/tools/check-stale-build.sh" "$root" "$out/stale" "$jobs" Ninja
}

test_stage() {  # stage: waits for its build, then runs its tests
  local name=$1
  # The host suite holds the tests that wait for events with deadlines (the examples' scenarios
  # and panel): the other stages' tests give way to it, and to the builds.
  [ "$name" = host ] || renice -n 5 -p "$BASHPID" >/dev/null
  if [ "$name" != stale ]; then
    while [ ! -f "$state/$name.built" ]; do sleep 0.2; done
    if [ "$(recorded "$name.built")" != ok ]; then
      echo "0 1 0" >"$state/$name.counts"
      { echo "--- FAILED: $name build (log in $out/$name.build.log)"; tail -60 "$out/$name.build.log"; } \
        >"$state/$name.report"
      echo "=== $name: build FAILED"
      return
    fi
  fi
  case $name in
    host)
      if [ $quick -eq 1 ]; then
        ctest_stage host -R '^(native\.|native_jvm\.|java\.|exports$)'
      else
        ctest_stage host
      fi ;;
    stale) check_stage stale stale_check ;;
    # Native tests with leak detection; the JVMs' options come from tests/CMakeLists.txt.
    asan) ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest_stage asan ;;
    ppc) ctest_stage ppc ;;
    device) check_stage device "$root/tests/tools/check-device-link.sh" "$out/device/libtovrCMT.so" ;;
    # The suppressions name only the races the library has on purpose.
    tsan) TSAN_OPTIONS="suppressions=$root/tests/sanitizer/tsan.supp:second_deadlock_stack=1" ctest_stage tsan ;;
  esac
  local passed failed skipped
  read -r passed failed skipped <"$state/$name.counts"
  echo "=== $name: $passed passed, $failed failed$([ "$skipped" -eq 0 ] || echo ", $skipped skipped")"
}

if [ $quick -eq 1 ]; then
  stages=(host)
else
  # The device build comes after the PowerPC one, whose objects it takes from the compiler cache.
  stages=(host stale asan ppc device tsan)
fi
# The stages run in the background, where a shell ignores Ctrl-C: an interrupt ends them all.
trap 'trap - INT TERM; kill 0 2>/dev/null; exit 130' INT TERM
( for s in "${stages[@]}"; do [ "$s" = stale ] || build_stage "$s"; done ) &
testers=()
for s in "${stages[@]}"; do
  test_stage "$s" &
  testers+=($!)
done
wait "${testers[@]}"
wait

# ---- summary
for s in "${stages[@]}"; do cat "$state/$s.report" 2>/dev/null; done
echo
printf '%-7s %9s %9s %9s %9s %7s %7s %7s\n' stage build 'build cpu' tests 'test cpu' passed failed skipped
passed=0 failed=0 skips=0 cpu=0
for s in "${stages[@]}"; do
  read -r p f k <"$state/$s.counts"
  passed=$((passed + p)) failed=$((failed + f)) skips=$((skips + k))
  cpu=$((cpu + $(recorded "$s.build.cpu") + $(recorded "$s.test.cpu")))
  printf '%-7s %8ss %8ss %8ss %8ss %7d %7d %7d\n' "$s" "$(seconds "$(recorded "$s.build.time")")" \
    "$(seconds "$(recorded "$s.build.cpu")")" "$(seconds "$(recorded "$s.test.time")")" \
    "$(seconds "$(recorded "$s.test.cpu")")" "$p" "$f" "$k"
done
printf 'setup %s s; the whole run %s s, %s s of CPU (builds and tests overlap)\n' "$(seconds "$setup_ms")" \
  "$(seconds $(( $(now) - started )))" "$(seconds "$cpu")"
[ "$skips" -eq 0 ] || echo "skipped: $skips (see the ctest logs for why)"
echo "total: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
