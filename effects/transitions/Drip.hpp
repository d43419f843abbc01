#pragma once
// An image running down the screen like wet paint: each column of the source is drawn
// moved down by t * speed * H * f pixels, t the local time (0 before the start), speed in
// layer heights per second and f a per-column factor between 0.5 and 1 that varies
// smoothly across the columns, so the picture drips down in uneven tongues. Above a
// column's moved picture the target keeps what it had. A negative speed runs upwards.
#include <vector>

#include "core/Layer.hpp"
#include "effects/filters/Noise.hpp"

namespace vz {

// The factors of `width` columns: noise bytes averaged over 15 neighbouring columns
// (wrapping round the row), taken from 0-255 to 0.5-1.
std::vector<float> dripFactors(int width, NoiseGenerator& generator);

// factors and drops hold an entry per target column; drops is room for each column's
// move. The source covers the target and is not the target.
void drip(Layer32bpp& target, const Layer32bpp& source, const float* factors, int* drops, float t, float speed);

}  // namespace vz
