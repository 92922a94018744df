#!/usr/bin/env bash
# Compares the Java declarations of each module's natives with the checked-in signature list
# (tests/exports/<ModuleJNI>.sig: "result name(types)", parameter names dropped, order free).
# Modules without a .sig file are not checked here.
# usage: check-signatures.sh GENERATED_JAVA_ROOT EXPORTS_DIR
set -euo pipefail
gen=$1 dir=$2
status=0
shopt -s nullglob
for sig in "$dir"/*.sig; do
  module=$(basename "$sig" .sig)
  java=$(find "$gen" -name "$module.java" | head -n 1)
  if [ -z "$java" ]; then
    echo "$module: no generated $module.java"
    status=1
    continue
  fi
  expected=$(grep -v '^#' "$sig" | grep -v '^$' | sort)
  actual=$(grep 'static native' "$java" | sed -E 's/^ *public final static native //; s/;$//; s/ jarg[0-9]+_?//g' | sort)
  if [ "$expected" != "$actual" ]; then
    echo "$module: signatures differ (< listed, > generated):"
    diff <(echo "$expected") <(echo "$actual") | grep '^[<>]' || true
    status=1
  else
    echo "$module: $(echo "$actual" | wc -l) signatures"
  fi
done
exit $status
