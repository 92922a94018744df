#!/usr/bin/env bash
# The developer kit, made by one command: under build/sdk/ a Maven-layout local repository with
# the library's Java API (tarnwick:tovrcmt) and the simulated device's controls (tarnwick:tovrsim),
# each with its .pom, jar, -sources.jar and -javadoc.jar; the host libtovrCMT.so and the simulated
# device's native libraries; the API reference; and a README with the Gradle and Maven
# coordinates and the java command line. Only the JDK's tools and Debian packages are used.
# scripts/sdk.sh --help lists the options.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TOVR_BUILD_DIR:-$root/build/main}
out=$root/build/sdk
version=${TOVR_SDK_VERSION:-1.0.0}
jobs=${TOVR_JOBS:-$(nproc)}
jdk=${JAVA_HOME:-/usr/lib/jvm/java-17-openjdk-amd64}
me=scripts/sdk.sh
tag=sdk
# shellcheck source=host-build.sh
. "$root/scripts/host-build.sh"
do_build=1

usage() {
  cat <<EOF
usage: $me [option ...]
Builds the library for the host (as scripts/main.sh does) and makes the developer kit.

  --out DIR     where the kit goes (default build/sdk)
  --build DIR   the build tree to make it from (default build/main, or TOVR_BUILD_DIR)
  --no-build    take the build tree as it is (it must be built)
  --help        this text

Environment: TOVR_SDK_VERSION (default 1.0.0), TOVR_JOBS, JAVA_HOME.
EOF
}

while [ $# -gt 0 ]; do
  case $1 in
    -h|--help) usage; exit 0 ;;
    --out|--build)
      [ $# -ge 2 ] || bad "$1 needs a value"
      if [ "$1" = --out ]; then out=$2; else build=$2; fi
      shift 2 ;;
    --no-build) do_build=0; shift ;;
    *) bad "unknown option \"$1\"" ;;
  esac
done
[[ $version =~ ^[0-9A-Za-z._-]+$ ]] || bad "TOVR_SDK_VERSION \"$version\" is not a version"
mkdir -p "$out"
out=$(cd "$out" && pwd)

if [ $do_build = 1 ]; then
  stages=7
  host_build "$root" "$build" "$jobs"
else
  stages=5
  step "taking the build in $build"
fi
for f in java/tovrCMT.jar java/tovrsim.jar libtovrCMT.so libtovrsim.so libtovrsimctl.so; do
  [ -f "$build/$f" ] || bad "$build/$f is missing: build first (or leave out --no-build)"
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The API reference stays where its sources are unchanged (see javadoc_run); the rest is made anew.
rm -rf "$out/repository" "$out/lib" "$out/docs/index.html" "$out/README.md"
mkdir -p "$out/lib" "$out/docs/api"

# ---- sources: the generated module classes, the host classes, the simulated device's controls ----
# Each package of a module gets its overview from the leading comment of its interface file(s).
mkdir -p "$work/src/tovrcmt" "$work/src/tovrsim"
for dir in "$build"/java/gen/*/; do
  module=$(basename "$dir")
  iface=$root/wrapper/$module.i
  [ -f "$iface" ] || bad "$dir has no interface file $iface: the build is not of this tree"
  package=$(sed -n '1s#^// package ##p' "$iface")
  pdir=$work/src/tovrcmt/${package//.//}
  mkdir -p "$pdir"
  cp "$dir"*.java "$pdir/"
  # The comment lines after the package line, up to %module.
  awk 'NR > 1 && /^%module/ { exit } NR > 1 && /^\/\// { sub(/^\/\/ ?/, ""); print }' "$iface" >>"$pdir/overview.txt"
  echo "(module $module)" >>"$pdir/overview.txt"
done
for txt in $(find "$work/src/tovrcmt" -name overview.txt); do
  pdir=$(dirname "$txt")
  package=$(realpath --relative-to="$work/src/tovrcmt" "$pdir" | tr / .)
  {
    echo "/**"
    sed 's/^/ * /; s/&/\&amp;/g; s/</\&lt;/g; s/>/\&gt;/g' "$txt"
    echo " * <p>Applications use the proxy classes of this package; each carries a native handle and"
    echo " * frees it with {@code delete()}. The {@code ...JNI} class holds the natives themselves."
    echo " */"
    echo "package $package;"
  } >"$pdir/package-info.java"
  rm "$txt"
done
cp -r "$root"/java/src/. "$work/src/tovrcmt/"
mkdir -p "$work/src/tovrsim/tarnwick/sim"
find "$root/platform/sim" -name '*.java' -exec cp {} "$work/src/tovrsim/tarnwick/sim/" \;

# ---- the API reference ----
step "writing the API reference (javadoc)"
# javadoc and jar run for seconds: the quick compiler alone and one collector thread do their
# work with less CPU time than the VM's defaults (as in cmake/javac-jar.sh).
quick_vm=(-J-XX:TieredStopAtLevel=1 -J-XX:+UseSerialGC)
javadoc_run() {  # artifact title classpath [options...]
  local artifact=$1 title=$2 classpath=$3 docs=$out/docs/api/$1 inputs
  shift 3
  (cd "$work/src/$artifact" && find . -name '*.java' | sort >"$work/$artifact.files")
  # Everything the reference is made from: javadoc's version, its arguments, every source, the
  # class path's jars and the files the options name. The same inputs made the reference there
  # already (a second kit from an unchanged tree, as the tests make): it stays, with its log.
  inputs=$( {
    cat "$jdk/release"
    printf '%s\n' "$version" "$title" "$classpath" "$@"
    (cd "$work/src/$artifact" && xargs -d '\n' sha1sum <"$work/$artifact.files")
    tr : '\n' <<<"$classpath" | xargs -d '\n' sha1sum
    for arg in "$@"; do
      if [ -f "$arg" ]; then sha1sum "$arg"; elif [ -f "$arg/element-list" ]; then sha1sum "$arg/element-list"; fi
    done
  } | sha1sum | cut -d' ' -f1)
  if [ -f "$docs/index.html" ] && [ "$(cat "$docs.inputs" 2>/dev/null)" = "$inputs" ] && [ -f "$docs.javadoc.log" ]; then
    echo "sdk:       $artifact: $(wc -l <"$work/$artifact.files") source files, 0 errors," \
      "$(grep -c 'warning' "$docs.javadoc.log" || true) warnings (unchanged sources: the reference made from them stays)"
    return
  fi
  rm -rf "$docs" "$docs.inputs" "$docs.javadoc.log"
  if ! (cd "$work/src/$artifact" && "$jdk/bin/javadoc" "${quick_vm[@]}" -quiet -notimestamp -encoding UTF-8 -docencoding UTF-8 \
        -charset UTF-8 -d "$docs" -classpath "$classpath" -windowtitle "$title" \
        -doctitle "$title $version" -Xdoclint:all,-missing "$@" @"$work/$artifact.files") \
        >"$work/$artifact.javadoc.log" 2>&1; then
    echo "sdk: javadoc of $artifact failed:" >&2
    grep -E 'error' "$work/$artifact.javadoc.log" | head -40 >&2
    exit 1
  fi
  local warnings
  warnings=$(grep -c 'warning' "$work/$artifact.javadoc.log" || true)
  echo "sdk:       $artifact: $(wc -l <"$work/$artifact.files") source files, 0 errors, $warnings warnings"
  cp "$work/$artifact.javadoc.log" "$docs.javadoc.log"
  echo "$inputs" >"$docs.inputs"
}
javadoc_run tovrcmt "libtovrCMT Java API" "$build/java/tovrCMT.jar" -overview "$root/examples/sdk/overview.html"
javadoc_run tovrsim "Simulated device controls" "$build/java/tovrCMT.jar:$build/java/tovrsim.jar" \
  -linkoffline ../tovrcmt "$out/docs/api/tovrcmt"

# ---- the repository ----
step "making the Maven repository (tarnwick:tovrcmt, tarnwick:tovrsim $version)"
pom() {  # artifact name description [dependency-artifact]
  cat <<EOF
<?xml version="1.0" encoding="UTF-8"?>
<project xmlns="http://maven.apache.org/POM/4.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
         xsi:schemaLocation="http://maven.apache.org/POM/4.0.0 http://maven.apache.org/xsd/maven-4.0.0.xsd">
  <modelVersion>4.0.0</modelVersion>
  <groupId>tarnwick</groupId>
  <artifactId>$1</artifactId>
  <version>$version</version>
  <packaging>jar</packaging>
  <name>$2</name>
  <description>$3</description>
EOF
  if [ -n "${4:-}" ]; then
    cat <<EOF
  <dependencies>
    <dependency>
      <groupId>tarnwick</groupId>
      <artifactId>$4</artifactId>
      <version>$version</version>
    </dependency>
  </dependencies>
EOF
  fi
  echo "</project>"
}
publish() {  # artifact jar name description [dependency]
  local artifact=$1 jar=$2 dir=$out/repository/tarnwick/$1/$version base=$1-$version
  mkdir -p "$dir"
  pom "$artifact" "$3" "$4" "${5:-}" >"$dir/$base.pom"
  cp "$jar" "$dir/$base.jar"
  "$jdk/bin/jar" "${quick_vm[@]}" cf "$dir/$base-sources.jar" -C "$work/src/$artifact" .
  "$jdk/bin/jar" "${quick_vm[@]}" cf "$dir/$base-javadoc.jar" -C "$out/docs/api/$artifact" .
  for f in "$dir"/*; do
    sha1sum "$f" | cut -d' ' -f1 >"$f.sha1"
    md5sum "$f" | cut -d' ' -f1 >"$f.md5"
  done
  cat >"$out/repository/tarnwick/$artifact/maven-metadata-local.xml" <<EOF
<?xml version="1.0" encoding="UTF-8"?>
<metadata>
  <groupId>tarnwick</groupId>
  <artifactId>$artifact</artifactId>
  <versioning>
    <release>$version</release>
    <versions>
      <version>$version</version>
    </versions>
  </versioning>
</metadata>
EOF
}
publish tovrcmt "$build/java/tovrCMT.jar" "libtovrCMT Java API" \
  "The Java modules of libtovrCMT.so (tarnwick.zel.wrapper.*) and the host classes the library builds and calls back."
publish tovrsim "$build/java/tovrsim.jar" "Simulated device controls" \
  "Control of the simulated device (tarnwick.sim.*) on a workstation: sample data, forced answers, events." tovrcmt

# ---- native libraries ----
step "copying the native libraries (libtovrCMT.so, libtovrsim.so, libtovrsimctl.so)"
for lib in libtovrCMT.so libtovrsim.so libtovrsimctl.so; do
  cp "$build/$lib" "$out/lib/$lib"
  chmod u+w "$out/lib/$lib"
done
# They find each other in their own folder, wherever the kit is.
cat >"$work/rpath.cmake" <<'EOF'
foreach(lib libtovrCMT.so libtovrsimctl.so)
  file(RPATH_SET FILE "${LIBS}/${lib}" NEW_RPATH "$ORIGIN")
endforeach()
EOF
run_logged "$work/rpath.log" cmake -DLIBS="$out/lib" -P "$work/rpath.cmake"

# ---- README ----
step "writing $out/README.md"
sed -e "s#@VERSION@#$version#g" -e "s#@KIT@#$out#g" "$root/examples/sdk/README.md.in" >"$out/README.md"
mkdir -p "$out/examples/hello"
cp "$root/examples/hello/Hello.java" "$out/examples/hello/"
cat >"$out/docs/index.html" <<EOF
<!DOCTYPE html><html lang="en"><head><meta charset="utf-8"><title>libtovrCMT $version API reference</title></head>
<body><h1>libtovrCMT $version</h1><ul>
<li><a href="api/tovrcmt/index.html">libtovrCMT Java API</a> (tarnwick:tovrcmt)</li>
<li><a href="api/tovrsim/index.html">Simulated device controls</a> (tarnwick:tovrsim)</li>
</ul></body></html>
EOF
echo "sdk: the kit is in $out (README.md tells how to use it)"
