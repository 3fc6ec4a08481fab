#!/usr/bin/env bash
# The tour in the README and the pages in examples/from-erp/ give what they show: the commands of each are run one after
# another, from a folder that holds examples/ and from a copy of examples/from-erp/. A page has ten lines at most.
# With a third argument the transcript of one page's run is left in that file, to be put into the page, which the fourth
# argument names (the README).
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"

[ $# -ge 2 ] || { echo "usage: $0 QVASSEMBLY SOURCE-TREE [TRANSCRIPT [PAGE]]" >&2; exit 2; }
source=$2
transcript=${3:-}
wanted=${4:-README.md}
scratch=$(mktemp -d)
PATH=$(dirname "$1"):$PATH
unset COLUMNS QVASSEMBLY_CONFIG

# Commands start with "$ " and go on in lines that start with "> ".
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

# check_page PAGE FOLDER: the page's commands, run in the folder.
check_page() {
  awk '/^```console$/ { on = 1; next } /^```$/ { on = 0 } on' "$source/$1" >"$scratch/shown"
  sed -n -E '/^[$>] /p' "$scratch/shown" >"$scratch/commands"
  [ -s "$scratch/commands" ] || miss "$1 shows no commands; this test looks in the wrong place"
  (cd "$2" && replay) >"$scratch/given" 2>&1
  [ -z "$transcript" ] || [ "$1" != "$wanted" ] || cp "$scratch/given" "$transcript"
  diff -u "$scratch/shown" "$scratch/given" || miss "$1 shows something else than its commands give"
}

mkdir "$scratch/README"
cp -r "$source/examples" "$scratch/README"
check_page README.md "$scratch/README"
pages=("$source"/examples/from-erp/*.md)
[ ${#pages[@]} -ge 5 ] || miss "only ${#pages[@]} pages were found in examples/from-erp/"
for page in "${pages[@]}"; do
  name=$(basename "$page" .md)
  cp -r "$source/examples/from-erp" "$scratch/$name"
  [ "$(wc -l <"$page")" -le 10 ] || miss "$page has more than ten lines"
  check_page "examples/from-erp/$name.md" "$scratch/$name"
done
rm -r "$scratch"
