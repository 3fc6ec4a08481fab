#!/usr/bin/env bash
# Draws the dialogs' icons: NAME.ico for the Windows resources and NAME.png for the GTK view, both committed beside
# this script. Needs ImageMagick.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

working=$(mktemp -d)
trap 'rm -rf "$working"' EXIT

# draw NAME FILL STROKE PATH...: paths on a canvas of 16 x 16, drawn large and scaled down for smooth edges.
draw() {
  local name=$1 primitives="scale 32,32 fill $2 stroke $3 stroke-width 0.5 stroke-linejoin round" path
  shift 3
  for path in "$@"; do primitives+=" path '$path'"; done
  convert -size 512x512 xc:none -draw "$primitives" -strip "$working/$name.png"
  convert "$working/$name.png" -define icon:auto-resize=48,32,24,20,16 "$name.ico"
  convert "$working/$name.png" -filter Box -resize 64x64 -define png:exclude-chunks=date,time "$name.png"
}

draw up   '#3a7bc0' '#1d4e86' 'M 8,1.5 L 14,8 L 10.5,8 L 10.5,14.5 L 5.5,14.5 L 5.5,8 L 2,8 Z'
draw down '#3a7bc0' '#1d4e86' 'M 8,14.5 L 14,8 L 10.5,8 L 10.5,1.5 L 5.5,1.5 L 5.5,8 L 2,8 Z'
# Two arcs, each with its arrow head, chasing one another.
draw refresh '#3a9a4b' '#1f6b2e' \
  'M 2,8 A 6,6 0 0 1 11.2,2.9 L 12.3,1.2 L 14.6,6.6 L 8.7,6.8 L 9.9,4.9 A 3.6,3.6 0 0 0 4.4,8 Z' \
  'M 14,8 A 6,6 0 0 1 4.8,13.1 L 3.7,14.8 L 1.4,9.4 L 7.3,9.2 L 6.1,11.1 A 3.6,3.6 0 0 0 11.6,8 Z'
