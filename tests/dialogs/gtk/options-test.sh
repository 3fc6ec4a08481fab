#!/usr/bin/env bash
# The dialog as the program shows it, in a folder that has no format file yet.
# usage: options-test.sh QVASSEMBLY     under an X server
set -euo pipefail

program=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
cd "$folder"

"$program" options >out 2>err &
# Enter in the dialog, and in the box that says what it has to say of a format without columns.
while kill -0 $! 2>/dev/null; do
  window=$(xdotool search --onlyvisible --name '^Option$' | tail -1) || true
  [ -z "$window" ] || xdotool windowfocus "$window" key Return || true
  sleep 0.3
done
wait $! || { echo "options has failed"; cat err; exit 1; }
[ -s AssemblyFormats.xml ] || { echo "no format file was written"; exit 1; }
if [ -s out ] || [ -s err ]; then
  echo "unexpected output:"
  cat out err
  exit 1
fi
