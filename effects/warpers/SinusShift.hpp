#pragma once
// A picture shaken by sine waves: every row moves sideways by its own shift and every
// column up or down by its own, so straight lines of the picture become waves. The shifts
// are two small tables made each frame.
#include <cstdint>

namespace vz {

// The shifts of one frame: rowShift[y] sideways, columnShift[x] downward, and the same
// column shifts times the picture's stride; `largest` is the largest column shift.
struct SinusShifts {
    const int* rowShift;
    const int* columnShift;
    const std::int64_t* columnOffset;
    int largest;
};

// Row y of a w x h target: dst[x] = src[(y + columnShift[x]) * stride + x + rowShift[y]],
// both held inside the picture. Rows the column shifts cannot take out of the picture
// skip the clamps between the columns the row shift keeps inside.
void sinusShiftRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                   const SinusShifts& shifts);

}  // namespace vz
