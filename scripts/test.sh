#!/usr/bin/env bash
# Every test: set up, then build and run the host suite (native, real JVM with -Xcheck:jni,
# Java module tests), the same under AddressSanitizer+UndefinedBehaviorSanitizer, the native
# tests under ThreadSanitizer, and the native suite cross-built for the 32-bit big-endian
# PowerPC device under qemu-ppc; the device build (platform left to the loader) must compile and
# link too, and a header change in a scratch build must rerun SWIG for exactly the modules that
# include it.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
out=${TOVR_BUILD_DIR:-$root/build}
jobs=${TOVR_JOBS:-$(nproc)}
"$root/scripts/setup.sh" || exit 1

passed=0 failed=0 skips=0 status=0
run_suite() {  # name, build dir, cmake args...
  local name=$1 dir=$2
  shift 2
  echo "=== $name: configure and build"
  if ! cmake -S "$root" -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >"$dir.configure.log" 2>&1 ||
     ! cmake --build "$dir" -j "$jobs" >"$dir.build.log" 2>&1; then
    cat "$dir.configure.log" "$dir.build.log" 2>/dev/null | tail -60
    echo "=== $name: build FAILED"
    failed=$((failed + 1)) status=1
    return
  fi
  echo "=== $name: test"
  local log="$dir.ctest.log"
  ctest --test-dir "$dir" --output-on-failure -j "$jobs" 2>&1 | tee "$log"
  [ "${PIPESTATUS[0]}" -eq 0 ] || status=1
  local summary
  summary=$(grep -E '[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+' "$log" | tail -1)
  local total bad
  total=$(sed -E 's/.* out of ([0-9]+).*/\1/' <<<"$summary")
  bad=$(sed -E 's/.*passed, ([0-9]+) tests? failed.*/\1/' <<<"$summary")
  if [ -z "$summary" ]; then failed=$((failed + 1)); status=1; return; fi
  local skipped
  skipped=$(grep -c -- '\*\*\*Skipped' "$log" || true)
  passed=$((passed + total - bad - skipped)) failed=$((failed + bad)) skips=$((skips + skipped))
}

mkdir -p "$out"
run_suite host "$out/host" -DTOVR_BUILD_TESTS=ON -DTOVR_BUILD_BENCH=ON -DTOVR_BUILD_FUZZ=ON
# The host suite again, everything built with AddressSanitizer and UndefinedBehaviorSanitizer:
# native tests with leak detection; a JVM (JUnit and native_jvm tests) with the sanitizer's
# runtime preloaded and the options of tests/CMakeLists.txt. Any report fails its test.
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  run_suite asan "$out/asan" -DTOVR_SANITIZE=address -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF
# The native tests under ThreadSanitizer (notifications from several facade threads at once);
# the suppressions name only the races the library has on purpose.
TSAN_OPTIONS="suppressions=$root/tests/sanitizer/tsan.supp:second_deadlock_stack=1" \
  run_suite tsan "$out/tsan" -DTOVR_SANITIZE=thread -DTOVR_BUILD_JAVA=OFF -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF
run_suite ppc "$out/ppc" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-powerpc-linux-gnu.cmake"

echo "=== stale build: a header change reruns SWIG for exactly the modules that include it"
if "$root/tests/tools/check-stale-build.sh" "$root" "$out/stale" "$jobs"; then
  passed=$((passed + 1))
else
  failed=$((failed + 1)) status=1
fi

echo "=== device: configure and build (platform symbols left to the loader)"
if cmake -S "$root" -B "$out/device" -DTOVR_PLATFORM=device \
     -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-powerpc-linux-gnu.cmake" >"$out/device.log" 2>&1 &&
   cmake --build "$out/device" -j "$jobs" >>"$out/device.log" 2>&1 &&
   "$root/tests/tools/check-device-link.sh" "$out/device/libtovrCMT.so"; then
  passed=$((passed + 1))
else
  tail -40 "$out/device.log"
  failed=$((failed + 1)) status=1
fi

[ "$skips" -eq 0 ] || echo "skipped: $skips (see the ctest logs for why)"
echo "total: $passed passed, $failed failed"
exit $status
