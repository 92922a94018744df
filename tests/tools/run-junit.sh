#!/usr/bin/env bash
# Runs JUnit tests in one JVM with -Xcheck:jni; any JNI warning fails the run.
# usage: run-junit.sh JAVA CONSOLE_JAR CLASSPATH LIBRARY_PATH [selectors, e.g. --select-class C]
# Without selectors every test of the first class path entry runs.
set -uo pipefail
java=$1 console=$2 cp=$3 libpath=$4
shift 4
[ $# -gt 0 ] || set -- --scan-class-path "${cp%%:*}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# The quick compiler alone and one collector thread: a test class's VM lives for seconds, and
# these halve the CPU time it spends on itself. A test whose point is load (the stress tests)
# sets TOVR_JVM_DEFAULTS=1 and runs with the VM's own compilers and collector, as applications
# do: they call the library faster and from more interleavings. TOVR_JVM_ARCHIVE: a class data
# archive of the console launcher (made by the build), mapped when it is there.
# TOVR_JVM_OPTIONS: further VM options of one test (word-split on purpose).
# TOVR_TEST_DEFAULTS: "NAME=value ..." set for the test where the caller's environment has no NAME
# (the test command's sizes, which scripts/stress.sh overrides).
for pair in ${TOVR_TEST_DEFAULTS:-}; do
  name=${pair%%=*}
  [ -n "${!name+set}" ] || export "$pair"
done
quick=(-XX:TieredStopAtLevel=1 -XX:+UseSerialGC)
[ -n "${TOVR_JVM_DEFAULTS:-}" ] && quick=()
archive=()
if [ -f "${TOVR_JVM_ARCHIVE:-}" ]; then
  archive=(-XX:SharedArchiveFile="$TOVR_JVM_ARCHIVE" -Xlog:cds=off -Xlog:cds+dynamic=off)
fi
# A sanitizer build names its runtime (and what must follow it) in TOVR_JVM_PRELOAD; only the
# VM gets it.
LD_LIBRARY_PATH="$libpath${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}" \
  LD_PRELOAD="${TOVR_JVM_PRELOAD:-${LD_PRELOAD:-}}" \
  "$java" -Xcheck:jni -XX:-UsePerfData ${quick[@]+"${quick[@]}"} ${archive[@]+"${archive[@]}"} \
  ${TOVR_JVM_OPTIONS:-} \
  -Djava.library.path="$libpath" -jar "$console" \
  --class-path "$cp" --disable-banner --details=summary \
  --fail-if-no-tests "$@" 2>&1 | tee "$log"
rc=${PIPESTATUS[0]}
if grep -q "WARNING in native method" "$log"; then
  echo "FAILED: -Xcheck:jni reported warnings:"
  grep -n -A3 "WARNING in native method" "$log" | head -40
  exit 1
fi
# A sanitizer report fails the run even when the VM's exit code hides it.
if grep -qE "ERROR: (AddressSanitizer|LeakSanitizer)|runtime error:|WARNING: ThreadSanitizer" "$log"; then
  echo "FAILED: sanitizer report"
  exit 1
fi
exit "$rc"
