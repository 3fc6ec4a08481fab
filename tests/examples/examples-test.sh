#!/usr/bin/env bash
# The example files do what they are shown for: each is read whole and without a remark by its format, parts survive the
# way through another format and back, and the file of mistakes draws the remarks it was made for.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"

[ $# -eq 2 ] || { echo "usage: $0 QVASSEMBLY EXAMPLES" >&2; exit 2; }
program=$1
scratch=$(mktemp -d)
cd "$2"
export QVASSEMBLY_CONFIG=$PWD/AssemblyFormats.xml
qv() { "$program" "$@"; }

# kind, format ("-" where the file names its own), file, records, and a text that as many records as lines must hold
reads='
parts              orders             parts.csv              48  株式会社東和精工
parts              -                  laser-list.txt         24  rush;.call.before.delivery
tools              -                  tools.txt              51  Ø.9.4./.90°
materials          cutting-conditions cutting-conditions.txt 30  nozzle.2.5
sheets             nested-sheets      nested-sheets.txt      26  Dvořák
part-programs      -                  part-programs.csv      30  first.run,.single.block
material-inventory stock              stock.txt              23  SUS304.2B
material-library   material-library   material-library.csv   33  AlMg2,5
'
shown=()
while read -r kind format file records text; do
  [ -n "$kind" ] || continue
  [ "$format" = - ] && chosen=() || chosen=(--format "$format")
  [ "$format" = - ] && format=$(qv format-name get "$file")
  shown+=("$format")
  qv import --kind "$kind" "${chosen[@]}" --as jsonl "$file" >"$scratch/records" 2>"$scratch/remarks"
  expect "records of $file" "$(wc -l <"$scratch/records")" "$records"
  expect "remarks on $file" "$(head -n 3 "$scratch/remarks")" ""
  expect "'$text' in $file" "$(grep -c -- "$text" "$scratch/records" || true)" "$(grep -c -- "$text" "$file")"
done <<<"$reads"

# kind, format, records, rows that they take below the header on line 3
writes='
job-progress  job-progress   job-progress.json  22
part-programs program-report part-programs.json 30
'
while read -r kind format file rows; do
  [ -n "$kind" ] || continue
  shown+=("$format")
  qv export --kind "$kind" --format "$format" --records "$file" "$scratch/$format.txt" 2>"$scratch/remarks"
  expect "rows of $format" "$(tail -n +4 "$scratch/$format.txt" | wc -l)" "$rows"
  expect "remarks on $format" "$(head -n 3 "$scratch/remarks")" ""
  expect "the name in $format" "$(qv format-name get "$scratch/$format.txt")" "$format"
done <<<"$writes"

expect "the formats that the examples use" "$(printf '%s\n' "${shown[@]}" | sort -u | xargs)" \
  "$(sed -n 's/.*<OptionForm Name="\([^"]*\)".*/\1/p' AssemblyFormats.xml | sort -u | xargs)"

# What the two formats share must be the same however often the parts change between them.
qv convert --kind parts --from orders --to laser-list parts.csv "$scratch/once.txt"
qv convert --kind parts --from laser-list --to orders "$scratch/once.txt" "$scratch/back.csv"
qv convert --kind parts --from orders --to laser-list "$scratch/back.csv" "$scratch/twice.txt"
expect "rows after the conversion" "$(tail -n +4 "$scratch/once.txt" | wc -l)" 48
cmp "$scratch/once.txt" "$scratch/twice.txt" || miss "the parts changed on the way through the other format"

mistakes='
3 PartQuantity trailing-text
4 PartQuantity not-a-number
5  row-left-out
6 MaterialThickness trailing-text
7 PartQuantity empty-value
8  row-too-short
9 PartQuantity number-out-of-range
10  open-qualifier
10  row-too-short
11  row-too-long
12  row-left-out
13 PartComment text-cut
14 Priority not-a-number
'
found=$(qv check --kind parts --format orders --diagnostics json odd-parts.csv 2>&1 |
  sed -E 's/.*"line":([0-9]+),"column":"([^"]*)","code":"([^"]*)".*/\1 \2 \3/' || true)
expect "the remarks on the mistakes" "$found" "${mistakes:1:-1}"
rm -r "$scratch"
