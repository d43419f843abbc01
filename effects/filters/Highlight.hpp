#pragma once
// Sparkles: a star picture drawn, centred, on the white pixels of a layer (colour
// 0xFFFFFF, whatever the alpha byte), black star pixels being transparent. The layer is
// scanned first and the stars drawn after, so a star never lights further stars. After a
// hit the scan skips half a star's width along the row, and at most maxStars stars are
// drawn: a white area gives a grid of stars, not one per pixel.
#include <cstddef>
#include <vector>

#include "core/Layer.hpp"

namespace vz {

constexpr std::size_t maxStars = 1024;

struct StarHit {
    int x, y;
};

// The stars go through the operator of `rendu` (clamped). `hits` is room for the scan's
// finds; its old contents are dropped.
void drawHighlights(Layer32bpp& target, const Layer32bpp& star, int rendu, std::vector<StarHit>& hits);

}  // namespace vz
