#!/usr/bin/env bash
# The documents name every column, every word of a choice and every remark. With a program, the page of columns says
# what its keywords command says.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"
cd "$here/../.."
shopt -s lastpipe # what a name at the end of a pipe misses is to be counted here

# documented WHAT PAGE < names: each name must stand in the page as code.
documented() {
  local name count=0
  while read -r name; do
    count=$((count + 1))
    grep -qF -- "\`$name\`" "$2" || miss "$2 does not name the $1 $name"
  done
  [ "$count" -gt 0 ] || miss "no $1 was found; this test looks in the wrong place"
}

# The quoted texts in the files, but for names of headers.
quoted() { sed '/#include/d' "$@" | grep -oE '"[^"]+"' | sed -E 's/^"//; s/ ?"$//' | sort -u; }

quoted engines/columns/*Columns.cpp engines/columns/Words.h | grep -vxE '(UsedTool|Hole|Bend)Info' | documented "column or word" docs/columns.md
grep -hv '#define' engines/columns/*Columns.cpp | grep -oE '(TOOL|HOLE|BEND)\(\w+' | cut -d'(' -f2 | documented "column of a list" docs/columns.md
sed -n '/kCodeNames\[\]/,/^};/p' platform/Handlers.cpp | quoted | documented remark docs/diagnostics.md
quoted cli/*.cpp cli/*/*.cpp | grep -E '^(suggest|json)-' | documented "code of the program" docs/diagnostics.md
[ $# -eq 0 ] || python3 "$here/columns_page.py" "$1" docs/columns.md || miss "docs/columns.md differs from the library"
