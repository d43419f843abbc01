#pragma once
// Tiling a layer over a larger one: copies of the source laid edge to edge, the first
// with its top-left corner at (x0, y0), repeated right and down to the target's edges.
#include <cstdint>

#include "core/Layer.hpp"
#include "core/Palette.hpp"

namespace vz {

// Tiles at x = x0, x0 + source width, ... and y = y0, y0 + source height, ... while they
// start inside the target, each cut to the target. A positive x0 or y0 leaves the band
// before it untouched; tiles wholly left of or above the target are skipped.
// Every visible tile row is blended with `rendu` (clamped). Tiles are drawn row of
// tiles by row of tiles, left to right, each top to bottom; a layer tiled over itself
// reads what the tiles drawn before have left in it.
void drawTiles(Layer32bpp& target, const Layer32bpp& source, std::int64_t x0, std::int64_t y0, int rendu);

// The same with an 8-bit source converted through the palette.
void drawTiles(Layer32bpp& target, const Layer8bpp& source, const Palette& palette, std::int64_t x0, std::int64_t y0);

}  // namespace vz
