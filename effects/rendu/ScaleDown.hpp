#pragma once
// Halving a layer: every 2x2 block of the source becomes one target pixel.
#include "core/Layer.hpp"

namespace vz {

// Target pixel = mean of the 2x2 block, each channel's two low bits dropped first (the
// alpha byte becomes 0). The target is written as (W/2) x (H/2) pixels with row stride
// W/2, W x H being the source's size, whatever the target's own width; rows that would
// pass the end of the target's memory are not written.
void scaleDown(Layer32bpp& target, const Layer32bpp& source);

// The 8-bit form: (a + b + c + d) >> 2.
void scaleDown(Layer8bpp& target, const Layer8bpp& source);

}  // namespace vz
