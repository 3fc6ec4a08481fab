#!/usr/bin/env bash
# A library exports exactly the names in the committed list, and the list holds exactly what the headers mark as public.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/../house/expect.sh"
# shellcheck source=scripts/lib/exports.sh
. "$here/../../scripts/lib/exports.sh"

usage() { echo "usage: $0 elf LIST LIBRARY ARCHIVE | dll LIST LIBRARY" >&2; exit 2; }

[ $# -ge 3 ] || usage
format=$1 list=$2 library=$3 archive=${4:-}

# compare WHAT NAMES NAMES: tells the names that only one of the sorted lists holds.
compare() {
  local difference
  difference=$(LC_ALL=C comm -3 "$2" "$3" | c++filt)
  [ -z "$difference" ] || miss "$1; scripts/update-exports writes the lists anew:"$'\n'"$difference"
}

readable() { listed_exports "$1" | with_readable_names | cut -f1 | LC_ALL=C sort; }

count=$(listed_exports "$list" | wc -l)
[ "$count" -gt 500 ] || miss "the list holds only $count names; this test looks in the wrong place"
case $format in
  elf) exported_by_elf "$library" ;;
  dll) exported_by_dll "$library" ;;
  *) usage ;;
esac >"$TMPDIR/exported"
compare "only listed (left) or only exported (right)" <(listed_exports "$list") "$TMPDIR/exported"

# The names of the C interface, each with the number of the interface that it came with, stay for ever.
since=$here/../../module/exports-c.txt
compare "a name of the C interface is only in exports-c.txt (left) or only exported (right)" \
  <(cut -d' ' -f2 "$since" | LC_ALL=C sort) <(grep '^qva_' "$TMPDIR/exported")
expect "the latest number in exports-c.txt" "$(cut -d' ' -f1 "$since" | sort -n | tail -n 1)" \
  "$(sed -n 's/^#define QVA_ABI_VERSION //p' "$here/../../c/qvassembly.h")"

if [ -n "$archive" ]; then
  compare "only listed (left) or only marked as public (right)" <(listed_exports "$list") <(public_in_elf "$archive")
  compare "only for Linux (left) or only for Windows (right)" \
    <(readable "$here/../../module/exports-linux.map") <(readable "$here/../../module/exports-windows.def")
fi
