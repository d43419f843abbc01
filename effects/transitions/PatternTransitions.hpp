#pragma once
// Pattern transitions: as local time t runs from 0 to 1, each pixel whose pattern grey
// has been reached switches from the target's picture to the buffer's, dark pattern
// pixels first. From t = 1 on, the buffer's first W x H pixels are copied as one run.
// The pattern is read with the target's width as its row length, the buffer with its own
// width; both cover the target.
#include <cstdint>

#include "core/Layer.hpp"
#include "core/Palette.hpp"

namespace vz {

// A hard switch at level trunc(256 t); only the level's low byte counts, so a negative
// time switches the pixels up to the level's byte (t = -0.5 gives -128, byte 128).
void patternSwitch(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, float t);

// A front `radius` levels wide on each side of the level, coloured from the palette:
// pixel of grey p at k = p - level shows palette colour 128 + k (held in 0-255) added,
// saturating, to the buffer (k < 0) or to the target (k >= 0).
void patternGlow(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, const Palette& palette,
                 int radius, float t);

// A soft front 32 levels wide below the level: the buffer is blended over the target at
// level 32 - k, k being how far into the front the pixel's grey lies.
void patternFade(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, float t);

}  // namespace vz
