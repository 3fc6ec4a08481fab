#!/usr/bin/env bash
# The README's tour gives what it shows: its commands are run one after another, from a folder that holds examples/.
# With a third argument the transcript of this run is left in that file, to be put into the README.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"

[ $# -ge 2 ] || { echo "usage: $0 QVASSEMBLY SOURCE-TREE [TRANSCRIPT]" >&2; exit 2; }
source=$2
transcript=${3:-}
scratch=$(mktemp -d)
PATH=$(dirname "$1"):$PATH
unset COLUMNS

awk '/^```console$/ { on = 1; next } /^```$/ { on = 0 } on' "$source/README.md" >"$scratch/shown"

# Commands start with "$ " and go on in lines that start with "> ".
sed -n -E '/^[$>] /p' "$scratch/shown" >"$scratch/commands"
[ -s "$scratch/commands" ] || miss "the README shows no commands; this test looks in the wrong place"

replay() {
  local line command=""
  while IFS= read -r line; do
    printf '%s\n' "$line"
    command+=${line:2}$'\n'
    [[ $line == *[\\\|] ]] && continue
    eval "$command" </dev/null 2>"$scratch/remarks" || true
    cat "$scratch/remarks" # after the output, as two streams have no order of their own
    command=""
  done <"$scratch/commands"
}

cp -r "$source/examples" "$scratch"
(cd "$scratch" && replay) >"$scratch/given" 2>&1
[ -z "$transcript" ] || cp "$scratch/given" "$transcript"
diff -u "$scratch/shown" "$scratch/given" || miss "the README shows something else than its commands give"
rm -r "$scratch"
