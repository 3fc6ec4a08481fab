#!/usr/bin/env bash
# completion-test.sh QVASSEMBLY: what the completion offers is what the help pages list, and values fit.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/../house/expect.sh"
# shellcheck source=completions/qvassembly.bash
. "$here/../../completions/qvassembly.bash"
program=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"; [ "$failures" = 0 ] || exit 1' EXIT
cd "$scratch"
cp "$here/../../examples/AssemblyFormats.xml" formats.xml
unset QVASSEMBLY_CONFIG
touch parts.CSV list.txt records.json notes.md
mkdir folder

# offers WORD...: what the completion offers for the last word, sorted, on one line.
offers() {
  COMP_WORDS=("$program" "$@")
  COMP_CWORD=$#
  _qvassembly
  printf '%s\n' "${COMPREPLY[@]-}" | sort | xargs
}

# The long options that the help page of a command lists, with the common ones. No command is led astray by those
# that its examples show.
listed_options() {
  { "$program" "$@" --help | sed '/^Examples:/,$d' | grep -oE '^  (-h,)?--[a-z-]+'
    "$program" --help | sed '/^Examples:/,$d' | grep -oE '^  --(diagnostics|encoding|strict)'; } |
    sed -E 's/^  (-h,)?//' | sort -u | xargs
}

listed_commands() {
  "$program" "$@" --help | sed -n '/^Subcommands:/,/^$/p' | sed -nE 's/^  ([a-z-]+) .*/\1/p' | sort | xargs
}

# check_command WORD...: the command's own page and those of the commands below it.
check_command() {
  expect "options of '$*'" "$(offers "$@" --)" "$(listed_options "$@")"
  local below
  below=$(listed_commands "$@")
  [ -n "$below" ] || return 0
  expect "commands of '$*'" "$(offers "$@" '')" "$below"
  local sub
  for sub in $below; do check_command "$@" "$sub"; done
}
check_command

# The kinds are those that a wrong one is answered with.
for command in import export convert check; do
  case $command in
    export) wanted=$("$program" export --kind nonsense --records x a.csv 2>&1 || true) ;;
    import | check) wanted=$("$program" $command --kind nonsense a.csv 2>&1 || true) ;;
    convert) wanted=$("$program" convert --kind nonsense a.csv b.csv 2>&1 || true) ;;
  esac
  wanted=$(sed -n 's/.*one of //p' <<<"$wanted" | tr -d , | xargs -n1 | sort | xargs)
  expect "kinds of $command" "$(offers $command --kind '')" "$wanted"
done

expect "formats of a file" "$(offers import --config formats.xml --format l)" "laser-list"
expect "formats to show" "$(offers formats show --config formats.xml part)" "part-programs"
expect "formats named after a file" "$(offers convert a.csv b.txt --config formats.xml --to st)" "stock"
expect "files" "$(offers import --kind parts '')" "folder list.txt parts.CSV"
expect "records" "$(offers export --records '')" "folder records.json"
expect "format files" "$(offers formats list --config '')" "folder formats.xml"
expect "forms" "$(offers import --as j)" "json jsonl"
expect "forms of a format" "$(offers formats show x --as '')" "json text"
