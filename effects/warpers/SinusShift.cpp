#include "effects/warpers/SinusShift.hpp"

#include <cstddef>

#include "effects/warpers/WarpSampling.hpp"

namespace vz {

void sinusShiftRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y, int rowShift,
                   const int* columnShift) {
    for (int x = 0; x < w; ++x) {
        const int sy = clampToEdge(y + columnShift[x], h), sx = clampToEdge(x + rowShift, w);
        dst[x] = src[static_cast<std::size_t>(sy) * static_cast<std::size_t>(stride) + static_cast<std::size_t>(sx)];
    }
}

}  // namespace vz
