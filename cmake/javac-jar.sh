#!/usr/bin/env bash
# Compiles every .java below the given folders into one jar.
# usage: javac-jar.sh JAVAC JAR OUT.jar CLASSPATH|- DIR...
set -euo pipefail
javac=$1 jar=$2 out=$3 cp=$4
[ "$cp" = "-" ] && cp=""
shift 4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
{ find "$@" -name "*.java" 2>/dev/null || true; } | sort > "$work/sources"
mkdir "$work/classes"
if [ -s "$work/sources" ]; then
  "$javac" -nowarn -encoding UTF-8 -d "$work/classes" ${cp:+-cp "$cp"} @"$work/sources"
fi
"$jar" cf "$out.tmp" -C "$work/classes" .
mv "$out.tmp" "$out"
