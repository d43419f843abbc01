#pragma once
// Drawing a picture onto a layer at a normalised position with a scale, by the placement
// and clipping rule every sprite of the program follows: the corner is
// (floor((x + 1) * (W >> 1) - w * scaleX / 2), floor((y + 1) * (H >> 1) - h * scaleY / 2)),
// the drawn size trunc(w * scaleX) x trunc(h * scaleY), nothing is drawn unless the corner
// lies left of the last column and above the last row and the picture reaches column and
// row 0; the source is stepped in 16.16 fixed point, one source pixel per target pixel,
// chosen by truncation.
#include <cstdint>

#include "script/Layer.hpp"

namespace vz {

enum class BlackPixels { drawn, transparent };

// Every drawn pixel goes through the per-pixel operator of `rendu` (clamped); with
// BlackPixels::transparent a source pixel of 0 leaves the target as it is. Scales at or
// below 0, or not numbers, draw nothing; scales above 65536 act as 65536 (a step of one
// 65536th of a pixel is the finest the fixed point holds).
void drawScaled(Layer32bpp& target, const Layer32bpp& picture, float x, float y, float scaleX, float scaleY,
                int rendu, BlackPixels black = BlackPixels::drawn);

// The same with the corner given in target pixels, unscaled.
void drawAt(Layer32bpp& target, const Layer32bpp& picture, int cornerX, int cornerY, int rendu,
            BlackPixels black = BlackPixels::drawn);

}  // namespace vz
