#pragma once
// Drawing a whole picture onto a layer at a normalised position with a scale, through the
// sprites' placement, clipping and 16.16 stepping (effects/sprites/SpriteDrawing.hpp), so
// filters such as the zoom place their pictures exactly as sprites are placed.
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

enum class BlackPixels { drawn, transparent };

// Every drawn pixel goes through the per-pixel operator of `rendu` (clamped); with
// BlackPixels::transparent a source pixel of 0 leaves the target as it is. Scales at or
// below 0, or not numbers, draw nothing; scales above 65536 act as 65536 (a step of one
// 65536th of a pixel is the finest the fixed point holds).
void drawScaled(Layer32bpp& target, const Layer32bpp& picture, float x, float y, float scaleX, float scaleY, int rendu,
                BlackPixels black = BlackPixels::drawn);

// The same with the corner given in target pixels, unscaled.
void drawAt(Layer32bpp& target, const Layer32bpp& picture, int cornerX, int cornerY, int rendu,
            BlackPixels black = BlackPixels::drawn);

}  // namespace vz
