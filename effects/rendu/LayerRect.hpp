#pragma once
// Rectangles drawn into a layer at the layer's own position (posX, posY).
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

// Fills a w x h rectangle at (posX, posY) with `colour` through `rendu`. Nothing is drawn
// unless the position lies inside the layer. A rectangle reaching the right or bottom
// edge is cut one short of it (w = width - x - 1, h = height - y - 1): a clipped fill
// never touches the last column and row. Effects rely on that look.
void fillRect(Layer32bpp& layer, int w, int h, std::uint32_t colour, int rendu);

// Copies a w x h block into the layer at (posX, posY) through `rendu`, reading `source`
// from its pixel (sx, sy) with the source's width as row stride (a window past the
// source's right edge reads the start of the following rows). Nothing is drawn unless
// the position lies inside the layer; w and h are cut to the layer's edge (the last
// column and row are reached). Source pixels outside the source's memory are not read:
// the destination pixels they would have covered are left as they are. The layer may be
// its own source: rows are copied top to bottom and pixels left to right, each reading
// what the copy has left there so far.
void copyRect(Layer32bpp& layer, const Layer32bpp& source, int sx, int sy, int w, int h, int rendu);

// The same for 8-bit layers, a plain byte copy.
void copyRect8(Layer8bpp& layer, const Layer8bpp& source, int sx, int sy, int w, int h);

}  // namespace vz
