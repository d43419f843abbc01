#pragma once
// Noisy scan lines, like a bad video signal: every row of the source is turned sideways
// by a random jitter of up to intensity / 8 pixels, and a row is also lit by a line of
// grey noise (added, saturating) with a chance of intensity / 256. intensity is held in
// 0-255; 0 copies the source as it is. The random rows follow the generator.
#include <cstdint>
#include <vector>

#include "core/Layer.hpp"
#include "effects/filters/Noise.hpp"

namespace vz {

// Grey noise of half brightness from the generator's next noise table, long enough for a
// row of `width` pixels to start anywhere in the table and still read a whole row.
std::vector<std::uint32_t> greyNoiseLine(NoiseGenerator& generator, int width);

// One frame: the generator gives each row its jitter and its chance. The source covers
// the target and is not the target.
void noiseLines(Layer32bpp& target, const Layer32bpp& source, int intensity, NoiseGenerator& generator,
                const std::uint32_t* greyNoise);

}  // namespace vz
