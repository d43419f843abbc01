#include "effects/warpers/Displacement.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/warpers/WarpSampling.hpp"

namespace vz {

void displacementRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                     const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, const int* shift) {
    const int* centred = shift + slopeCount / 2;
    const int last = w - 1;
    for (int x = 0; x < w; ++x) {
        const int slopeX = row[std::min(x + 1, last)] - row[std::max(x - 1, 0)];
        const int slopeY = down[x] - up[x];
        const int sx = clampToEdge(x + centred[slopeX], w), sy = clampToEdge(y + centred[slopeY], h);
        dst[x] = src[static_cast<std::size_t>(sy) * static_cast<std::size_t>(stride) + static_cast<std::size_t>(sx)];
    }
}

}  // namespace vz
