#!/usr/bin/env bash
# What stands in the tree speaks of the system itself: no pointers into requirement papers, no paths of a machine.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=tests/house/expect.sh
. "$here/expect.sh"
cd "$here/../.."

git rev-parse --is-inside-work-tree >/dev/null 2>&1 || { echo "no git tree to look at"; exit 77; }

# Written with classes of one letter, so that the patterns do not match themselves.
words='\b[s]pec(ification)?s?\b|\b[a]s specified|\b[P]arts? [1-5]\.[0-9]|\b[d]esign\.md|/[h]ome/|/[w]ork/'
while read -r hit; do
  miss "$hit"
done < <(git grep -nIiE "$words" -- . || true)
