# shellcheck shell=bash
# For the script tests: every unmet expectation is told, and the script ends with 1 when there was one.

failures=0
trap '[ "$failures" = 0 ] || exit 1' EXIT

miss() {
  failures=$((failures + 1))
  printf 'FAILED: %s\n' "$*"
}

# expect WHAT ACTUAL WANTED
expect() { [ "$2" = "$3" ] || miss "$1: got '$2', wanted '$3'"; }
