# What scripts/main.sh and scripts/sdk.sh share (sourced, not run): one line for a bad argument,
# one line a stage, a command's output kept in a log that is shown only when it fails, and the
# host build itself. The sourcing script sets `me` (its name as a user types it), `tag` (the
# word its stage lines begin with) and `stages` (how many it says).

bad() {
  echo "$me: $* ($me --help lists the options)" >&2
  exit 2
}

stage=0
step() {
  stage=$((stage + 1))
  echo "$tag: [$stage/$stages] $*"
}

run_logged() {  # log command...
  local log=$1
  shift
  if ! "$@" >"$log" 2>&1; then
    echo "$tag: failed; the last lines of $log:" >&2
    tail -n 40 "$log" >&2
    exit 1
  fi
}

# Three stages: installs what is missing, configures and builds the library, the simulated
# device and the Java side (no tests, no benchmarks) in `build` with `jobs` jobs. The logs are
# <build>/<tag>-configure.log and <build>/<tag>-build.log.
host_build() {  # root build jobs
  step "checking the Debian packages (scripts/setup.sh)"
  "$1/scripts/setup.sh"
  mkdir -p "$2"
  step "configuring $2"
  run_logged "$2/$tag-configure.log" \
    cmake -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOVR_BUILD_TESTS=OFF -DTOVR_BUILD_BENCH=OFF
  step "building the library, the simulated device and the demo with $3 jobs" \
    "(the first time takes a few minutes; log: $2/$tag-build.log)"
  run_logged "$2/$tag-build.log" cmake --build "$2" -j "$3"
}
