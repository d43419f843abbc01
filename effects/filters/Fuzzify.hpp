#pragma once
// Fuzzing: each target pixel takes the source pixel at a random offset, the offsets lying
// between two bounds (in pixels, both directions) and picked by a table of noise bytes.
#include <array>
#include <cstddef>
#include <cstdint>

namespace vz {

using FuzzOffsets = std::array<int, 256>;

// offsets[b] = floor(lo + (hi - lo) * b / 255): a noise byte to an offset. The bounds may
// come in either order; each is held within +-reach, and one that is not finite counts
// as 0.
void fuzzOffsets(FuzzOffsets& offsets, float lo, float hi, int reach);

// Pixel i = (x, y) of dst takes src at (x + offsets[noise at i + phaseX],
// y + offsets[noise at i + phaseY]), held inside the picture; the noise indices wrap
// round the noiseTableSize bytes of `noise`. dst and src are distinct width x height
// pictures.
void fuzzify(std::uint32_t* dst, const std::uint32_t* src, int width, int height, const std::uint8_t* noise,
             const FuzzOffsets& offsets, std::size_t phaseX, std::size_t phaseY);

}  // namespace vz
