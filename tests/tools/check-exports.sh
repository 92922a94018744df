#!/usr/bin/env bash
# Compares the library's exported Java_ functions with the checked-in lists (one file a module).
# usage: check-exports.sh LIBRARY EXPORTS_DIR
set -euo pipefail
lib=$1 dir=$2
expected=$(mktemp) actual=$(mktemp)
trap 'rm -f "$expected" "$actual"' EXIT
cat "$dir"/*.txt | grep -v '^#' | grep -v '^$' | sort > "$expected"
nm -D --defined-only "$lib" | awk '{print $3}' | grep '^Java_' | sort > "$actual"
missing=$(comm -23 "$expected" "$actual")
unexpected=$(comm -13 "$expected" "$actual")
dups=$(uniq -d "$expected")
status=0
[ -n "$dups" ] && { echo "listed twice:"; echo "$dups"; status=1; }
[ -n "$missing" ] && { echo "missing from the library:"; echo "$missing"; status=1; }
[ -n "$unexpected" ] && { echo "exported but not listed:"; echo "$unexpected"; status=1; }
for f in "$dir"/*.txt; do
  printf '%s: %d\n' "$(basename "$f" .txt)" "$(grep -c '^Java_' "$f")"
done
echo "exports: $(wc -l < "$actual") exported, $(wc -l < "$expected") listed"
exit $status
