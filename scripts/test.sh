#!/usr/bin/env bash
# Every test: set up, then build and run the host suite (native, real JVM with -Xcheck:jni,
# Java module tests) and the native suite cross-built for the 32-bit big-endian PowerPC device
# under qemu-ppc; the device build (platform left to the loader) must compile and link too, and a
# header change in a scratch build must rerun SWIG for exactly the modules that include it.
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
