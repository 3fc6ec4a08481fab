#!/usr/bin/env bash
# completion-test.sh QVASSEMBLY: what the completions of bash, zsh and fish offer is what the help pages list, and values
# fit. A shell that is not there is left out.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/house/expect.sh
. "$here/../house/expect.sh"
completions=$here/../../completions
# shellcheck source=completions/qvassembly.bash
. "$completions/qvassembly.bash"
program=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"; [ "$failures" = 0 ] || exit 1' EXIT
cd "$scratch"
cp "$here/../../examples/AssemblyFormats.xml" formats.xml
unset QVASSEMBLY_CONFIG
PATH=$(dirname "$program"):$PATH
touch parts.CSV list.txt records.json notes.md
mkdir folder

# What a shell offers for the last word, one a line.
offers_bash() {
  COMP_WORDS=("$program" "$@")
  COMP_CWORD=$#
  _qvassembly
  printf '%s\n' "${COMPREPLY[@]-}"
}
offers_zsh() {
  # shellcheck disable=SC2016  # zsh is to see these
  zsh -f -c '. "$1"; shift; _qvassembly_candidates "$@"' zsh "$completions/_qvassembly" "$program" "$@" |
    awk -v typed="${*: -1}" 'index($0, typed) == 1'
}
offers_fish() {
  # shellcheck disable=SC2016  # fish is to see these
  fish --no-config -c 'source $argv[1]; complete -C"$argv[2]"' "$completions/qvassembly.fish" "qvassembly $*" | cut -f1
}

# offers WORD...: the same of the shell that is looked at, sorted, on one line.
offers() { "offers_$shell" "$@" | sort -u | xargs; }

# The long options that the help page of a command lists, with the common ones. No command is led astray by those
# that its examples show.
listed_options() {
  { "$program" "$@" --help | sed '/^Examples:/,$d' | grep -oE '^  (-h,)?--[a-z-]+'
    "$program" --help | sed '/^Examples:/,$d' | grep -oE '^  --[a-z-]+' | grep -v -- --version; } |
    sed -E 's/^  (-h,)?//' | sort -u | xargs
}

listed_commands() {
  "$program" "$@" --help | sed -n '/^Subcommands:/,/^$/p' | sed -nE 's/^  ([a-z-]+) .*/\1/p' | sort | xargs
}

# check_command WORD...: the command's own page and those of the commands below it.
check_command() {
  expect "$shell: options of '$*'" "$(offers "$@" --)" "$(listed_options "$@")"
  local below
  below=$(listed_commands "$@")
  [ -n "$below" ] || return 0
  expect "$shell: commands of '$*'" "$(offers "$@" '')" "$below"
  local sub
  for sub in $below; do check_command "$@" "$sub"; done
}

check_values() {
  # The kinds are those that a wrong one is answered with.
  local command wanted
  for command in import export convert check keywords; do
    case $command in
      export) wanted=$("$program" export --kind nonsense --records x a.csv 2>&1 || true) ;;
      import | check) wanted=$("$program" $command --kind nonsense a.csv 2>&1 || true) ;;
      convert) wanted=$("$program" convert --kind nonsense a.csv b.csv 2>&1 || true) ;;
      keywords) wanted=$("$program" keywords --kind nonsense 2>&1 || true) ;;
    esac
    wanted=$(sed -n 's/.*one of //p' <<<"$wanted" | tr -d , | xargs -n1 | sort | xargs)
    expect "$shell: kinds of $command" "$(offers $command --kind '')" "$wanted"
  done
  expect "$shell: formats of a file" "$(offers import --config formats.xml --format l)" "laser-list"
  expect "$shell: formats to show" "$(offers formats show --config formats.xml part)" "part-programs"
  expect "$shell: formats named after a file" "$(offers convert a.csv b.txt --config formats.xml --to st)" "stock"
  expect "$shell: keywords" "$(offers formats add x --kind tools --columns ID,T)" "ID,ToolComment ID,ToolName ID,Type"
  expect "$shell: forms" "$(offers import --as j)" "json jsonl"
  expect "$shell: forms of a format" "$(offers formats show x --as '')" "json text"
  expect "$shell: types" "$(offers headers --type '')" "csv txt"
  expect "$shell: qualifiers" "$(offers formats add --qualifier '')" "double none single"
}

for shell in bash zsh fish; do
  command -v $shell >/dev/null || { echo "no $shell to complete with"; continue; }
  check_command
  check_values
done

shell=bash
expect "files" "$(offers import --kind parts '')" "folder list.txt parts.CSV"
expect "records" "$(offers export --records '')" "folder records.json"
expect "format files" "$(offers formats list --config '')" "folder formats.xml"
