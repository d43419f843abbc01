#!/usr/bin/env bash
# Makes the pictures of docs/effects-procedural.md: plays tools/docpictures/procedural.txt
# (a 320 x 200 show of the sample demo's files, one keyword a second) headless and writes
# one frame per keyword as docs/pictures/KEYWORD.png.
set -eu
player=${1:?usage: make-doc-pictures.sh PATH/TO/vzplayer}
root="$(cd "$(dirname "$0")/.." && pwd)"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp "$root"/demos/sample/* "$work"/
cp "$root/tools/docpictures/config.txt" "$work/config.txt"
cp "$root/tools/docpictures/procedural.txt" "$work/main.txt"
keywords=(flowerPlasma32bpp rotozoomKeytrack32bpp sorbelFloor32bpp sorbelWarperLight32bpp sorbelWarper32bpp
          displacement32bpp kestrilWarper32bpp starFlower32bpp circle32bpp dashedCircle32bpp shapeDisc32bpp
          shapeCorona32bpp glimmetDot32bpp glimmetSprite32bpp dynamicSystem32bpp bumpLightmap8bpp backSinus32bpp
          sinusCircles32bpp bigDiscs32bpp rotatedSinusCircles32bpp fire8bpp)
mkdir -p "$root/docs/pictures"
shots=()
for i in "${!keywords[@]}"; do shots+=(--shot "$i.8=$root/docs/pictures/${keywords[$i]}.png"); done
"$player" --headless --fps 25 "${shots[@]}" "$work" > /dev/null
