#!/usr/bin/env bash
# Makes the pictures of the effect pages: plays each show of tools/docpictures (a 320 x 200
# show of the sample demo's files, one keyword a second) headless and writes one frame per
# keyword, taken near the end of its second, as docs/pictures/KEYWORD.png.
#   procedural.txt  docs/effects-procedural.md
#   models3d.txt    docs/effects-3d.md
set -eu
player=${1:?usage: make-doc-pictures.sh PATH/TO/vzplayer}
root="$(cd "$(dirname "$0")/.." && pwd)"
mkdir -p "$root/docs/pictures"

# pictures SHOW KEYWORD...: the show's second i is the picture of the i-th keyword.
pictures() {
    local show=$1
    shift
    local work
    work="$(mktemp -d)"
    cp "$root"/demos/sample/* "$work"/
    cp "$root/tools/docpictures/config.txt" "$work/config.txt"
    cp "$root/tools/docpictures/$show" "$work/main.txt"
    local shots=() i=0
    for keyword in "$@"; do
        shots+=(--shot "$i.8=$root/docs/pictures/$keyword.png")
        i=$((i + 1))
    done
    "$player" --headless --fps 25 "${shots[@]}" "$work" > /dev/null
    rm -rf "$work"
}

pictures procedural.txt flowerPlasma32bpp rotozoomKeytrack32bpp sorbelFloor32bpp sorbelWarperLight32bpp \
    sorbelWarper32bpp displacement32bpp kestrilWarper32bpp starFlower32bpp circle32bpp dashedCircle32bpp \
    shapeDisc32bpp shapeCorona32bpp glimmetDot32bpp glimmetSprite32bpp dynamicSystem32bpp bumpLightmap8bpp \
    backSinus32bpp sinusCircles32bpp bigDiscs32bpp rotatedSinusCircles32bpp fire8bpp
pictures models3d.txt wireframeFlower32bpp wireframeADN32bpp flareCube32bpp lensflareSpline32bpp cubeOfCubes32bpp \
    cubeOfCubesSinus32bpp cubesDelay32bpp metaballs32bpp morphingModel blobbyModel spherifyCubeModel delayModel \
    envmapModel phongModel lightFlatModel lightGouraudModel
