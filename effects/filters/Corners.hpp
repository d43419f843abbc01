#pragma once
// Rounded corners: outside a quarter circle of radius r in each corner of a layer, the
// pixels take one colour.
#include <cstdint>
#include <vector>

#include "core/Layer.hpp"

namespace vz {

// Entry j, for row j of a corner square (j = 0 at the layer's edge): how many pixels
// i = 0, 1, ... from the side edge have their centres (r - i - 0.5, r - j - 0.5) from the
// circle's centre further than r. Radius r gives r entries; 0 or less, none.
std::vector<int> cornerCuts(int radius);

// Fills cuts[j] pixels at both ends of rows j and height - 1 - j. The cuts come from a
// radius of at most half the layer's smaller side.
void fillCorners(Layer32bpp& target, const std::vector<int>& cuts, std::uint32_t colour);

}  // namespace vz
