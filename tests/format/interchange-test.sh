#!/usr/bin/env bash
# A format file that one platform's program has written gives the other's the same formats: the example file, and one
# with every character that XML, a path or a code page could trip over.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"

[ $# -eq 4 ] || { echo "usage: $0 LINUX-PROGRAM WINE-RUN PREFIX WINDOWS-PROGRAM"; exit 2; }
linux=$1
windows=("$2" "$3" "$4")
[ -x "$linux" ] || { echo "there is no $linux; scripts/build native makes it"; exit 77; }
export LC_ALL=C.UTF-8

on_linux() { "$linux" "$@"; }
on_windows() { "${windows[@]}" "$@"; }

example=$(dirname "${BASH_SOURCE[0]}")/../../examples/AssemblyFormats.xml
folder=$(mktemp -d)
cd "$folder"

# Saves what the file holds under a new writer's hand, once as it is and once with the odd format.
write_files() {
  cp "$example" "$1-example.xml"
  chmod u+w "$1-example.xml"
  "on_$1" formats use --config "$1-example.xml" stock
  cp "$1-example.xml" "$1-special.xml"
  "on_$1" formats add --config "$1-special.xml" $'A&B <"\'> äß€ 50% [x]; ]]> {\\}' --start-line 3 --delimiters Tab,Other \
    --other $'&<>"\'|\t€' --qualifier single --treat-as-one --part-key Path \
    --columns PartName,PartQuantity,Ignore,Customer,Ignore --set $'Priority= 7,&<>"\'\t\n€ü '
}

formats() { "on_$1" formats list --as json --config "$2"; }

write_files linux 2>linux.errors
write_files windows 2>windows.errors
for kind in example special; do
  formats linux "linux-$kind.xml" >"$kind.wanted" 2>/dev/null
  for writer in linux windows; do
    for reader in linux windows; do
      formats "$reader" "$writer-$kind.xml" 2>"$reader.errors" | tr -d '\r' >"$kind.found"
      cmp "$kind.wanted" "$kind.found" || miss "$kind written on $writer, read on $reader: $(cat "$reader.errors")"
    done
  done
done
grep -q '"Order":" 7,&<>\\"'"'"'\\t\\n€ü "' special.wanted || miss "the odd order text is not what was given"
grep -q '"Current":"stock"' example.wanted || miss "the current format was not saved"
