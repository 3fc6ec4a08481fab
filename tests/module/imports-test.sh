#!/usr/bin/env bash
# What is shipped imports nothing from the system but the functions in the committed list, all of which Windows 7 has:
# with one that a system lacks a program does not start there, whether it would call the function or not.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/../house/expect.sh"

[ $# -ge 3 ] || { echo "usage: $0 LIST FILE-THAT-STANDS-ALONE FILE..." >&2; exit 2; }
list=$1 alone=$2
shift

# The functions that the file imports, each behind its library's name.
imports_of() {
  x86_64-w64-mingw32-objdump -p "$1" |
    awk '/DLL Name:/ { library = $3 } /^\t[0-9a-f]+\t/ { print library, $3 }' | LC_ALL=C sort -u
}

shipped=()
for file; do shipped+=(-e "^$(basename "$file") "); done
for file; do
  imports=$(imports_of "$file")
  if [ "$file" = "$alone" ]; then
    beside=$(cut -d" " -f1 <<<"$imports" | sort -u | grep -xF "$(basename -a "$@")" || true)
    [ -z "$beside" ] || miss "$(basename "$alone") is to need no file beside it, and needs $beside"
  fi
  [ -n "$imports" ] || miss "$file imports nothing; this test looks in the wrong place"
  new=$(grep -v "${shipped[@]}" <<<"$imports" | LC_ALL=C comm -23 - "$list")
  [ -z "$new" ] || miss "$(basename "$file") imports what $(basename "$list") does not hold; if Windows 7 has it," \
    "it goes there, else it is to be looked up at run time:"$'\n'"$new"
done
