#include "effects/filters/NeighbourBlur.hpp"

#include <cstddef>

namespace vz {

void fourNeighbourBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height) {
    constexpr std::uint32_t keep = 0xFCFCFC;
    for (int y = 1; y < height - 1; ++y) {
        const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(y) * width;
        const std::uint32_t* up = src + offset - width;
        const std::uint32_t* mid = src + offset;
        const std::uint32_t* down = src + offset + width;
        std::uint32_t* out = dst + offset;
        for (int x = 1; x < width - 1; ++x)
            out[x] = ((up[x] & keep) + (mid[x - 1] & keep) + (mid[x + 1] & keep) + (down[x] & keep)) >> 2;
    }
}

}  // namespace vz
