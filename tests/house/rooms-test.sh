#!/usr/bin/env bash
# A room includes only what stands below it, and only the rooms that meet the platform ask which one it is.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"
cd "$here/../.."

# What a room may include besides itself. Everyone may mark what is exported (module/Export.h).
declare -A sees=(
  [text]=""
  [platform]="text"
  [records]=""
  [format]="text platform"
  [engines]="text platform records format"
  [guess]="text platform records format engines"
  [manager]="text platform records format engines"
  [dialogs]="text platform records format engines guess manager"
  [c]="text platform records format engines manager"
  [cli]="text platform records format engines guess manager dialogs"
)

check_include() {
  local file=$1 header=$2 room=${1%%/*} target found
  case $header in
    QVAssemblyFile/Export.h) return 0 ;;
    QVAssemblyFile/QVAssemblyFile.h) [ "$room" = cli ] && return 0; target=module ;;
    QVAssemblyFile/*) found=(*/"${header#*/}") target=${found[0]%%/*} ;;
    *) target=${header%%/*} ;;
  esac
  [ -d "$target" ] || return 0
  [[ " $room ${sees[$room]} " == *" $target "* ]] || miss "$file includes $header, which stands in $target/"
}

checked=0
while IFS=: read -r file line; do
  if [[ $line =~ [\"\<]([^\">]+/[^\">]+)[\"\>] ]]; then check_include "$file" "${BASH_REMATCH[1]}"; fi
  checked=$((checked + 1))
done < <(grep -rE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include' "${!sees[@]}")
[ "$checked" -gt 100 ] || miss "only $checked includes were found; this test looks in the wrong place"

platform_macros='_WIN32|_WIN64|WIN32|__MINGW|_MSC_VER|__linux__|__unix__'
while IFS=: read -r file line; do
  case $file in platform/* | module/* | dialogs/windows/* | c/qvassembly.h) ;; *) miss "$file asks for the platform: $line" ;; esac
done < <(grep -rE --include='*.h' --include='*.cpp' "^[[:space:]]*#.*\b($platform_macros)" "${!sees[@]}" module bench soak tests fuzz examples 2>/dev/null || true)
