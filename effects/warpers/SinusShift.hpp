#pragma once
// A picture shaken by sine waves: every row moves sideways by its own shift and every
// column up or down by its own, so straight lines of the picture become waves. The shifts
// are two small tables made each frame.
#include <cstdint>

namespace vz {

// Row y of a w x h target: dst[x] = src[(y + columnShift[x]) * stride + x + rowShift],
// both held inside the picture.
void sinusShiftRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y, int rowShift,
                   const int* columnShift);

}  // namespace vz
