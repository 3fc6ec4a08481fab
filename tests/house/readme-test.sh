#!/usr/bin/env bash
# The README names every column, every word of a choice, every remark and every command.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"
cd "$here/../.."
shopt -s lastpipe # what a name at the end of a pipe misses is to be counted here

# documented WHAT < names: each name must stand in the README as code.
documented() {
  local name count=0
  while read -r name; do
    count=$((count + 1))
    grep -qF -- "\`$name\`" README.md || miss "the README does not name the $1 $name"
  done
  [ "$count" -gt 0 ] || miss "no $1 was found; this test looks in the wrong place"
}

# The quoted texts in the files, but for names of headers.
quoted() { sed '/#include/d' "$@" | grep -oE '"[^"]+"' | sed -E 's/^"//; s/ ?"$//' | sort -u; }

quoted engines/columns/*Columns.cpp engines/columns/Words.cpp | documented "column or word"
sed -n '/kCodeNames\[\]/,/^};/p' platform/Diagnostics.cpp | quoted | documented remark
quoted cli/*.cpp | grep -E '^(suggest|json)-' | documented "code of the program"
