#pragma once
// Bands sweeping in: the layer is cut into horizontal bands of equal height; as the
// transition runs from 0 to 1 each band uncovers the source from one side, even bands
// from the left, odd bands from the right. Band i starts at i / (2 bands) and takes half
// the transition to cross, so the last one ends at 1; the bands arrive one after another
// like a staircase.
#include "core/Layer.hpp"

namespace vz {

// progress: the share of the transition done, 0-1. bands: 1 to the target's height. The
// source covers the target.
void sweepBands(Layer32bpp& target, const Layer32bpp& source, int bands, float progress);

}  // namespace vz
