#pragma once
// A picture seen through a relief of glass: an 8-bit map is the relief, and each pixel
// shows the picture moved by the slope of the relief there (the difference of its
// neighbours left and right, above and below). The move of each slope is a table made
// each frame from the intensity.
#include <cstdint>

namespace vz {

// Moves for the slopes -255 to 255: move[slope + 255].
constexpr int slopeCount = 511;

// The moves of one frame: sideways in pixels, downward in pixels and in picture indices
// (times the stride); `largest` is the largest move.
struct SlopeMoves {
    const int* across;
    const int* down;
    const std::int64_t* downOffset;
    int largest;
};

// Row y of a w x h target: slope x = right - left and slope y = down - up in the map rows
// (the pixel itself at an end), dst[x] = src[(y + move[slope y]) * stride + x +
// move[slope x]], held inside the picture. Pixels the moves cannot take out of the
// picture skip the clamps.
void displacementRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                     const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down,
                     const SlopeMoves& moves);

}  // namespace vz
