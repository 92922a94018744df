#!/usr/bin/env bash
# Compiles every .java below the given folders into one jar.
# usage: javac-jar.sh [-MF DEPFILE] JAVAC JAR OUT.jar CLASSPATH|- DIR...
# With -MF, writes a make dependency file naming every source compiled and every jar of the
# class path, so the jar follows generated sources whose names are known only after generation.
set -euo pipefail
depfile=
if [ "${1:-}" = "-MF" ]; then depfile=$2; shift 2; fi
javac=$1 jar=$2 out=$3 cp=$4
[ "$cp" = "-" ] && cp=""
shift 4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
{ find "$@" -name "*.java" 2>/dev/null || true; } | sort > "$work/sources"
mkdir "$work/classes"
# javac and jar run for seconds: the quick compiler alone and one collector thread do their work
# with half the CPU time of the VM's defaults.
vm=(-J-XX:TieredStopAtLevel=1 -J-XX:+UseSerialGC)
if [ -s "$work/sources" ]; then
  "$javac" "${vm[@]}" -nowarn -encoding UTF-8 -d "$work/classes" ${cp:+-cp "$cp"} @"$work/sources"
fi
"$jar" "${vm[@]}" cf "$out.tmp" -C "$work/classes" .
if [ -n "$depfile" ]; then
  {
    printf '%s:' "${out// /\\ }"
    while IFS= read -r f; do printf ' \\\n  %s' "${f// /\\ }"; done < "$work/sources"
    IFS=: read -ra jars <<<"$cp"
    for j in ${jars[@]+"${jars[@]}"}; do
      case $j in *.jar) [ -f "$j" ] && printf ' \\\n  %s' "${j// /\\ }" ;; esac
    done
    printf '\n'
  } > "$depfile.tmp"
  mv "$depfile.tmp" "$depfile"
fi
mv "$out.tmp" "$out"
