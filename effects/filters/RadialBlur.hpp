#pragma once
// Radial blur in place: every pixel is blended with the pixel found a share of the way
// towards the centre. The picture is walked outwards from the centre, so the inward pixel
// has already been blurred and the streaks grow long in one pass.
#include <cstdint>

namespace vz {

// Normalised -1..1 to a pixel, held inside 0 .. side - 1 so that the inward samples,
// which lie between a pixel and the centre, stay inside the picture.
int radialCentre(float normalised, int side);

// Blurs the width x height picture about pixel (cx, cy), which lies inside it.
// intensity, held in 0-256: how far towards the centre the sample lies, in 256ths of the
// distance; smoothness, held in 0-32: the sample's weight in 32nds (32 replaces the
// pixel). inwardX and inwardY are room for width and height entries.
void radialBlur(std::uint32_t* pixels, int width, int height, int cx, int cy, int intensity, int smoothness,
                int* inwardX, int* inwardY);

}  // namespace vz
