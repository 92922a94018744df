#!/usr/bin/env bash
# Compares the natives of each generated module class with the checked-in signatures
# (<ModuleJNI>.sig next to <ModuleJNI>.txt: one native a line, parameter names dropped).
# usage: check-signatures.sh JAVA_GEN_DIR EXPORTS_DIR
set -euo pipefail
gen=$1 dir=$2
status=0
for sig in "$dir"/*.sig; do
  module=$(basename "$sig" .sig)
  java=$(find "$gen" -name "$module.java" | head -1)
  if [ -z "$java" ]; then echo "$module: no generated class"; status=1; continue; fi
  expected=$(grep -v '^#' "$sig" | grep -v '^$' | sort)
  actual=$(grep 'static native' "$java" \
    | sed -E 's/^ *public final static native //; s/;$//' \
    | sed -E 's/ jarg[0-9]+_?//g' | sort)
  if [ "$expected" != "$actual" ]; then
    echo "$module: signatures differ (< expected, > generated)"
    diff <(echo "$expected") <(echo "$actual") || true
    status=1
  else
    echo "$module: $(echo "$expected" | wc -l) signatures"
  fi
done
exit $status
