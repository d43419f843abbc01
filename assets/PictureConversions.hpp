#pragma once
// The ways a decoded picture becomes layer pixels.
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vz {

// out[i] = palette[indices[i]] for count pixels.
void expandThroughPalette(const std::uint8_t* indices, std::size_t count, const std::array<std::uint32_t, 256>& palette,
                          std::uint32_t* out);

// Takes `count` consecutive 3-byte groups (blue, green, red) from `bytes` with no regard
// to rows, giving red << 16 | green << 8 | blue.
void pixelsFromByteTriples(const std::uint8_t* bytes, std::size_t count, std::uint32_t* out);

// Packs width x height indices as pairs (run length 1-255, index), each row on its own.
std::vector<std::uint8_t> packRuns(const std::uint8_t* indices, int width, int height);

}  // namespace vz
