#pragma once
// A picture seen through a relief of glass: an 8-bit map is the relief, and each pixel
// shows the picture moved by the slope of the relief there (the difference of its
// neighbours left and right, above and below). The move of each slope is a table made
// each frame from the intensity.
#include <cstdint>

namespace vz {

// Moves for the slopes -255 to 255: shift[slope + 255].
constexpr int slopeCount = 511;

// Row y of a w x h target: slope x = right - left and slope y = down - up in the map rows
// (the pixel itself at an end), dst[x] = src[(y + shift[slope y]) * stride + x + shift[slope x]],
// held inside the picture.
void displacementRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                     const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, const int* shift);

}  // namespace vz
