#!/usr/bin/env bash
# Makes the pictures of docs/components.md: for every built keyword, a tiny 160 x 100
# demo of the sample's files whose one component line takes its parameters from what
# their names say (a layer, a palette, a colour, a track, a number), played headless
# for one second over a picture of tiles; its last frame becomes
# docs/pictures/components/KEYWORD.png. A keyword with a parameter this script cannot
# tell, whose demo fails, or that leaves the tiles as they were, gets none, unless its
# effect page has a picture (below).
set -eu
player=${1:?usage: make-component-pictures.sh PATH/TO/vzplayer}
root="$(cd "$(dirname "$0")/.." && pwd)"
out="$root/docs/pictures/components"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
rm -rf "$out"
mkdir -p "$out"

# The token a parameter name stands for; nothing when the name says too little.
token() {
  case "$1" in
    target32bpp|screen32bpp) echo screen ;;
    source|image32bpp|layer32bpp|map32bpp|Layer32bpp|background|foreground) echo tiles ;;
    layer8bpp|image8bpp|map8bpp|alpha8bpp|alphamap8bpp|pattern8bpp|bump8bpp|lightmap8bpp|ligtmap8bpp) echo plasma ;;
    target8bpp) echo grey ;;
    buffer) echo spare ;;
    palette|Palette|Palette1|Palette2|PaletteDark|PaletteLight) echo rainbow ;;
    color|backcolor|fogColor|colorDark|colorLight) echo gold ;;
    lut|lut32bpp) echo table ;;
    offset32bpp) echo offsets ;;
    "(police)image32bpp") echo font ;;
    zbuffer) echo depth ;;
    renduTrack) echo constInt 32 ;;
    intTrack|frameTrack) echo constInt 1 ;;
    *Track\(vector2\)|positionTrack) echo constVector2 0.3 0.2 ;;
    tracksprite|trackSprite|spriteTrack) echo constSprite 0 0 1 1 ;;
    *Track|*Track\(float\)|*Track\(min\)|trackIntensity) echo constFloat 0.5 ;;
    "floatTrack(max)") echo constFloat 1 ;;
    "(float)"*) echo 0.5 ;;
    "(int)"*|frequence|ampl|amplX|amplY|maxOffsetX|maxOffsetY|delay|unsignedChar|numFrames) echo 8 ;;
    fps) echo 25 ;;
    string) echo VZPLAYER ;;
    *) return 1 ;;
  esac
}

cp "$root"/demos/sample/*.{pcx,gif,bmp,jpg} "$work"/
printf '160\n100\n100\n0\n64\n40\nNOSOUND\n' > "$work/config.txt"
resources='add tiles Layer32bpp tunnel_tiles.bmp
add plasma Layer8bpp plasma.pcx
add grey Layer8bpp sizeof screen
add spare Layer32bpp sizeof screen
add rainbow Palette pal_rainbow.pcx
add gold Color 0 40 180 255
add table Layer32bpp size 256 256
add offsets OffsetsTable tunnel_a.pcx tunnel_b.pcx
add font Layer32bpp police.pcx
add depth Zbuffer 160 100
copyLayer32bpp screen tiles constInt 32
0 2 0 1 0'
printf '%s\n' "$resources" > "$work/main.txt"
"$player" --headless --until 1 --shot "1=$work/tiles.png" "$work" > /dev/null

"$player" --list-components --markdown | awk -F'|' '$4 ~ /yes/ { gsub(/[` ]/, "", $2); gsub(/`/, "", $5); print $2 "|" $5 }' |
while IFS='|' read -r keyword syntax; do
  line="$keyword"
  for name in $syntax; do
    if ! value=$(token "$name"); then line=""; break; fi
    line="$line $value"
  done
  [ -n "$line" ] || continue
  printf '%s\n%s\n0 2 0 1 1\n' "$resources" "$line" > "$work/main.txt"
  picture="$out/$keyword.png"
  if ! "$player" --headless --until 1 --shot "1=$picture" "$work" > /dev/null 2>&1 || cmp -s "$picture" "$work/tiles.png"; then
    rm -f "$picture"
  fi
done
# A keyword with a chosen frame on its effect page (docs/pictures, made by
# tools/make-doc-pictures.sh from a show written for it) shows that frame instead of a
# guess, brought down to 160 x 100 when ffmpeg is at hand.
for page_picture in "$root"/docs/pictures/*.png; do
  keyword=$(basename "$page_picture" .png)
  if command -v ffmpeg > /dev/null; then
    ffmpeg -loglevel error -y -i "$page_picture" -vf scale=160:100 "$out/$keyword.png"
  else
    cp "$page_picture" "$out/$keyword.png"
  fi
done
echo "$(ls "$out" | wc -l) pictures in $out"
