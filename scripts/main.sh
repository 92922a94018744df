#!/usr/bin/env bash
# The main job: set up, build the library for the host (simulated device) and run the demo on it:
# the simulated device with sample data, the scan-to-e-mail application written against the
# library's Java modules, and the virtual front panel on http://127.0.0.1:<port>/ (Ctrl-C ends).
# scripts/main.sh --help lists the options. Arguments are checked before anything is built.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TOVR_BUILD_DIR:-$root/build/main}
jobs=${TOVR_JOBS:-$(nproc)}
java=${JAVA_HOME:-/usr/lib/jvm/java-17-openjdk-amd64}/bin/java
me=scripts/main.sh
tag=main
stages=4
# shellcheck source=host-build.sh
. "$root/scripts/host-build.sh"

usage() {
  cat <<EOF
usage: $me [option ...]
Builds the library for the host (the first time takes a few minutes), starts the simulated
device with sample data and the scan-to-e-mail application, walks through it, then serves the
front panel on http://127.0.0.1:<port>/ (the port is printed; Ctrl-C ends).

  --port N          the panel on port N (0, the default: a free one)
  --no-panel        the walk through only
  --no-walk         the panel only
  --scenario FILE   play a scenario instead (examples/scenarios/); exit 0 when every
                    expectation held, 1 when one did not, 2 for lines that are not steps
  --pace MS         the simulated device's pause between two steps of a job (0-10000, default 150)
  --root DIR        where the drives' folders and the panel's recordings go
                    (default build/main/demo-device)
  --time [SECONDS]  the first example instead: calendar fields of a time (default 1230768000)
  --help            this text

Environment: TOVR_BUILD_DIR (default build/main), TOVR_JOBS (build parallelism), JAVA_HOME.
EOF
}

number() {  # option value max
  [[ $2 =~ ^[0-9]{1,9}$ ]] && [ "$2" -le "$3" ] || bad "$1 takes a number from 0 to $3, not \"$2\""
}

demo_args=()
time_mode=0
time_args=()
while [ $# -gt 0 ]; do
  case $1 in
    -h|--help) usage; exit 0 ;;
    --port|--pace|--root|--scenario)
      [ $# -ge 2 ] || bad "$1 needs a value"
      case $1 in
        --port) number "$1" "$2" 65535 ;;
        --pace) number "$1" "$2" 10000 ;;
        --scenario) [ -f "$2" ] || bad "there is no scenario file $2" ;;
      esac
      demo_args+=("$1" "$2")
      shift 2 ;;
    --no-panel|--no-walk) demo_args+=("$1"); shift ;;
    --time)
      time_mode=1
      shift
      if [ $# -gt 0 ] && [[ $1 != --* ]]; then
        [[ $1 =~ ^[0-9]{1,10}$ ]] && [ "$1" -le 4294967295 ] \
          || bad "--time takes a number of seconds since 1970 (0 to 4294967295), not \"$1\""
        time_args+=("$1")
        shift
      fi ;;
    *) bad "unknown option \"$1\"" ;;
  esac
done
[ $time_mode = 0 ] || [ ${#demo_args[@]} = 0 ] || bad "--time is used alone"

started=$SECONDS
host_build "$root" "$build" "$jobs"
cp="$build/java/tovr-examples.jar:$build/java/tovrCMT.jar:$build/java/tovrsim.jar"
if [ $time_mode = 1 ]; then
  step "starting the time example (built in $((SECONDS - started)) s)"
  exec "$java" -Xcheck:jni -Dtovr.command=$me -Djava.library.path="$build" -cp "$cp" \
    tarnwick.examples.TimeDemo "${time_args[@]}"
fi
step "starting the demo (built in $((SECONDS - started)) s)"
exec "$java" -Xcheck:jni -Dtovr.command=$me -Djava.library.path="$build" -cp "$cp" \
  tarnwick.examples.demo.DeviceDemo --root "$build/demo-device" "${demo_args[@]}"
