#!/usr/bin/env bash
# Checks the library's interface against the checked-in lists of EXPORTS_DIR:
#  - names: the exported Java_ functions are exactly those of the <ModuleJNI>.txt lists, the
#    exported C++ names exactly those listed by name (CJvm.txt), and nothing else is exported;
#  - Java signatures (with GENERATED_DIR, the folder of the generated module classes): every
#    module class <ModuleJNI>.java found there has a <ModuleJNI>.sig, every .sig a generated
#    class, and the natives declared in the class are exactly the lines of the .sig (parameter
#    names dropped, order free). The method names of a .sig are those of its .txt.
# usage: check-exports.sh LIBRARY EXPORTS_DIR [GENERATED_DIR]
set -euo pipefail
lib=$1 dir=$2 gen=${3:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
report() {  # title, file of lines: prints and fails when the file is not empty
  if [ -s "$2" ]; then echo "$1"; sed 's/^/  /' "$2"; status=1; fi
}
listed() { grep -hv '^[[:space:]]*#' "$@" | sed 's/^[[:space:]]*//; s/[[:space:]]*$//' | grep -v '^$' || true; }

# ---- names
listed "$dir"/*.txt > "$work/listed"
grep '^Java_' "$work/listed" | sort > "$work/expected_java" || true
grep -v '^Java_' "$work/listed" | sort > "$work/expected_cxx" || true
nm -D --defined-only "$lib" | awk 'NF >= 3 {print $3}' | sort -u > "$work/exported"
grep '^Java_' "$work/exported" > "$work/actual_java" || true
grep -v '^Java_' "$work/exported" | c++filt | sort > "$work/actual_cxx" || true

sort "$work/listed" | uniq -d > "$work/dups"
report "listed twice:" "$work/dups"
comm -23 "$work/expected_java" "$work/actual_java" > "$work/missing"
comm -23 "$work/expected_cxx" "$work/actual_cxx" >> "$work/missing"
report "missing from the library:" "$work/missing"
comm -13 "$work/expected_java" "$work/actual_java" > "$work/unexpected"
comm -13 "$work/expected_cxx" "$work/actual_cxx" >> "$work/unexpected"
report "exported but not listed:" "$work/unexpected"
for f in "$dir"/*.txt; do
  printf '%s: %d\n' "$(basename "$f" .txt)" "$(listed "$f" | wc -l)"
done
echo "exports: $(wc -l < "$work/exported") exported, $(wc -l < "$work/listed") listed"

# ---- Java signatures
# "int cmt_time_getYear(long, cmt_time)": one line a native, single spaces, no parameter names.
normalize_sig() {
  listed "$1" | sed -E 's/[[:space:]]+/ /g; s/ ?\( ?/(/; s/ ?\)$/)/; s/ ?, ?/, /g' | sort
}
natives_of() {  # a generated module class: its native declarations as in a .sig
  sed -n 's/^[[:space:]]*public[a-z ]* native \(.*\);[[:space:]]*$/\1/p' "$1" | awk '{
    i = index($0, "("); head = substr($0, 1, i - 1); args = substr($0, i + 1)
    sub(/\)[[:space:]]*$/, "", args); gsub(/[[:space:]]+/, " ", head); sub(/ $/, "", head)
    n = split(args, a, ","); out = ""
    for (k = 1; k <= n; k++) {
      t = a[k]; gsub(/^[[:space:]]+|[[:space:]]+$/, "", t)
      sub(/[[:space:]]+[A-Za-z_$][A-Za-z0-9_$]*$/, "", t)
      out = out (k > 1 ? ", " : "") t
    }
    print head "(" out ")" }' | sort
}
method_names() { sed -E 's/\(.*//; s/.* //' | sort; }

if [ -n "$gen" ]; then
  find "$gen" -name '*JNI.java' | sort > "$work/classes"
  : > "$work/nosig"
  while IFS= read -r java; do
    class=$(basename "$java" .java)
    [ -f "$dir/$class.sig" ] || echo "$class (generated in $java)" >> "$work/nosig"
  done < "$work/classes"
  report "generated module classes without a signature list:" "$work/nosig"
  modules=0
  for sig in "$dir"/*.sig; do
    [ -e "$sig" ] || continue
    class=$(basename "$sig" .sig)
    modules=$((modules + 1))
    normalize_sig "$sig" > "$work/$class.expected"
    uniq -d "$work/$class.expected" > "$work/$class.dups"
    report "$class.sig: listed twice:" "$work/$class.dups"
    # The names of the signature list are those of the export list.
    if [ -f "$dir/$class.txt" ]; then
      listed "$dir/$class.txt" | grep '^Java_' | sed -E "s/^Java_.*_${class//_/_1}_//; s/_1/_/g" | sort \
        > "$work/$class.txt_names"
      method_names < "$work/$class.expected" > "$work/$class.sig_names"
      comm -23 "$work/$class.txt_names" "$work/$class.sig_names" > "$work/$class.d"
      report "$class: in $class.txt, not in $class.sig:" "$work/$class.d"
      comm -13 "$work/$class.txt_names" "$work/$class.sig_names" > "$work/$class.d"
      report "$class: in $class.sig, not in $class.txt:" "$work/$class.d"
    else
      echo "$class.sig has no export list $class.txt"; status=1
    fi
    java=$(grep -m1 "/$class.java\$" "$work/classes" || true)
    if [ -z "$java" ]; then
      echo "$class.sig: no generated class $class.java under $gen"; status=1
      continue
    fi
    natives_of "$java" > "$work/$class.actual"
    comm -23 "$work/$class.expected" "$work/$class.actual" > "$work/$class.d"
    report "$class: listed, not generated so:" "$work/$class.d"
    comm -13 "$work/$class.expected" "$work/$class.actual" > "$work/$class.d"
    report "$class: generated, not listed:" "$work/$class.d"
    printf '%s: %d signatures, %d natives generated\n' "$class" \
      "$(wc -l < "$work/$class.expected")" "$(wc -l < "$work/$class.actual")"
  done
  echo "signatures: $modules module(s) listed, $(wc -l < "$work/classes") generated"
fi
exit $status
