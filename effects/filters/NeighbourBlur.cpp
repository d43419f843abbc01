#include "effects/filters/NeighbourBlur.hpp"

#include <cstddef>

namespace vz {

void fourNeighbourBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height) {
    for (int y = 1; y < height - 1; ++y) {
        const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(y) * width;
        const std::uint32_t* mid = src + offset;
        std::uint32_t* out = dst + offset;
        for (int x = 1; x < width - 1; ++x) out[x] = fourNeighbourMean(mid - width, mid, mid + width, x);
    }
}

}  // namespace vz
