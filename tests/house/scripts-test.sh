#!/usr/bin/env bash
# Every shell script is clean under shellcheck, can be run, and says how it is used.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"
cd "$here/../.."

mapfile -t scripts < <(grep -rlE '^#!.*\bbash|^# shellcheck shell=bash' scripts .ci cmake tests)
[ "${#scripts[@]}" -gt 5 ] || miss "only ${#scripts[@]} scripts were found; this test looks in the wrong place"

if command -v shellcheck >/dev/null; then
  shellcheck -x "${scripts[@]}" || miss "shellcheck has remarks"
fi

for script in "${scripts[@]}"; do
  head -n 1 "$script" | grep -q '^#!' || continue
  [ -x "$script" ] || miss "$script has no run bit"
  grep -q '^set -.*u' "$script" || miss "$script does not stop at unset variables"
done

for script in scripts/analyse scripts/build scripts/coverage scripts/demo scripts/release scripts/test scripts/update-declarations; do
  "$script" --help | grep -q "^usage: $script" || miss "$script --help does not say how it is used"
done
scripts/build nonsense 2>/dev/null && miss "scripts/build accepts a tree that does not exist"
exit 0
