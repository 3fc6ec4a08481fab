#!/usr/bin/env bash
# The manual page is well formed, and names every command and option that the completion offers.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/../house/expect.sh"
# shellcheck source=completions/qvassembly.bash
. "$here/../../completions/qvassembly.bash"
command -v man >/dev/null || { echo "no man to look at the page with"; exit 77; }

page=$here/../../docs/man/qvassembly.1
warnings=$(LC_ALL=C.UTF-8 MANWIDTH=100 man --warnings -l "$page" 2>&1 >/dev/null)
expect "man's warnings" "$warnings" ""

# So wide that no word is broken at a hyphen.
text=$(LC_ALL=C.UTF-8 MANWIDTH=1000 man -l "$page" | col -b)
read -ra words <<<"${_qvassembly_options[*]} $_qvassembly_common ${_qvassembly_commands[*]} ${_qvassembly_kinds[*]}"
for word in "${words[@]}"; do
  grep -q -- "$word" <<<"$text" || miss "the manual page does not name $word"
done
exit 0
