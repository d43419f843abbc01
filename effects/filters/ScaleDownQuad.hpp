#pragma once
// A layer reduced to half its width and height, then the small picture copied into its
// four quarters. A last odd column or row is left as it was.
#include "core/Layer.hpp"

namespace vz {

// `quarter` is room for the small picture: (width / 2) x (height / 2) of the target.
void scaleDownQuad(Layer32bpp& target, Layer32bpp& quarter);

}  // namespace vz
