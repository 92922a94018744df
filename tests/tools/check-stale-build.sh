#!/usr/bin/env bash
# Shows that the build cannot go stale: in a scratch copy of the sources, builds the library and
# its jar, then touches one header at a time and rebuilds. SWIG must rerun exactly for the
# modules whose interface file includes that header (directly or through a shared interface
# piece), found here from the interface files themselves; the jar must follow. A rebuild
# without changes must run nothing.
# usage: check-stale-build.sh SOURCE_DIR SCRATCH_DIR [JOBS] [GENERATOR]
# (GENERATOR: a CMake generator, default CMake's own: Unix Makefiles.)
set -euo pipefail
root=$(cd "$1" && pwd)
scratch=$2
jobs=${3:-2}
generator=${4:-}
rm -rf "$scratch"
mkdir -p "$scratch/src"
scratch=$(cd "$scratch" && pwd)
src=$scratch/src bin=$scratch/build
# The sources without build trees: nothing of the developer's tree is touched.
for entry in "$root"/* "$root"/.[!.]*; do
  [ -e "$entry" ] || continue
  case $(basename "$entry") in build|.git) continue ;; esac
  case $scratch/ in "$entry"/*) continue ;; esac
  cp -a "$entry" "$src/"
done
# Only what the check needs: the jar target runs SWIG and javac, and compiles no C++.
cmake -S "$src" -B "$bin" ${generator:+-G "$generator"} -DTOVR_BUILD_TESTS=OFF \
  -DTOVR_BUILD_BENCH=OFF -DTOVR_BUILD_FUZZ=OFF -DTOVR_BUILD_JAVA=ON >"$scratch/configure.log" 2>&1 ||
  { tail -30 "$scratch/configure.log"; exit 1; }
build() {  # log file
  cmake --build "$bin" --target tovr_jar -j "$jobs" >"$1" 2>&1 || { tail -40 "$1"; exit 1; }
}
build "$scratch/build.0.log"

# ---- which module includes which file, from the interface files
native_dirs=$(sed -n 's/^set(TOVR_NATIVE_DIRS \(.*\))/\1/p' "$src/CMakeLists.txt")
search_dirs="wrapper platform/include $native_dirs"
resolve() {  # an %include name -> the file SWIG finds (first folder of its include path)
  local name=$1 d
  if [[ $name == */* ]] && [ -f "$src/wrapper/$name" ]; then
    (cd "$(dirname "$src/wrapper/$name")" && echo "$(pwd)/$(basename "$name")"); return
  fi
  for d in $search_dirs; do
    [ -f "$src/$d/$name" ] && { echo "$src/$d/$name"; return; }
  done
}
closure() {  # interface file -> every file it includes, recursively
  local file=$1 name path
  sed -n 's/^[[:space:]]*%\(include\|import\)[[:space:]]*"\([^"]*\)".*/\2/p' "$file" | while read -r name; do
    path=$(resolve "$name")
    [ -n "$path" ] || continue
    echo "$path"
    [[ $path == *.i ]] && closure "$path"
  done
}
declare -A users=()
modules=()
for iface in "$src"/wrapper/*.i; do
  head -1 "$iface" | grep -q '^// package ' || continue
  module=$(basename "$iface" .i)
  modules+=("$module")
  for f in $(closure "$iface" | sort -u); do
    users[$f]="${users[$f]:-} $module"
  done
done
one="" shared=""
for f in $(printf '%s\n' "${!users[@]}" | grep '\.h$' | sort); do
  n=$(wc -w <<<"${users[$f]}")
  [ "$n" -eq 1 ] && [ -z "$one" ] && one=$f
  [ "$n" -ge 2 ] && [ -z "$shared" ] && shared=$f
done
[ -n "$one" ] || { echo "stale check: no header is included by one module only"; exit 1; }

status=0
jar=$bin/java/tovrCMT.jar
step=0
touch_and_check() {  # header or "": expected modules from the interface files
  local header=$1 expected regenerated swig_runs jar_rebuilt
  step=$((step + 1))
  local marker=$scratch/marker.$step
  touch "$marker"
  sleep 1
  if [ -n "$header" ]; then touch "$header"; expected=$(tr ' ' '\n' <<<"${users[$header]}" | grep . | sort); else expected=""; fi
  build "$scratch/build.$step.log"
  regenerated=$(find "$bin/wrapper" -name '*_wrap.cxx' -newer "$marker" | sed 's|.*/||; s|_wrap\.cxx$||' | sort)
  swig_runs=$(grep -c '] SWIG ' "$scratch/build.$step.log" || true)
  jar_rebuilt=no
  [ "$jar" -nt "$marker" ] && jar_rebuilt=yes
  local what=${header#"$src/"}
  printf '%s: SWIG reran %d of %d modules (%s), jar rebuilt: %s\n' "${what:-no change}" "$swig_runs" \
    "${#modules[@]}" "$(echo $regenerated)" "$jar_rebuilt"
  if [ "$regenerated" != "$expected" ]; then
    echo "  expected: $(echo $expected)"; status=1
  fi
  if [ -n "$expected" ] && [ $jar_rebuilt = no ]; then echo "  the jar did not follow"; status=1; fi
  if [ -z "$expected" ] && [ $jar_rebuilt = yes ]; then echo "  the jar was rebuilt for nothing"; status=1; fi
}
# Straight after the first build: the dependency files written by that build must already count.
touch_and_check "$one"
[ -n "$shared" ] && touch_and_check "$shared"
touch_and_check ""
if [ $status -eq 0 ]; then echo "stale check: passed"; rm -rf "$scratch"; else echo "stale check: FAILED (logs in $scratch)"; fi
exit $status
