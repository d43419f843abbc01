#include "effects/filters/Antialiasing.hpp"

#include <cstddef>
#include <cstdlib>

#include "effects/filters/NeighbourBlur.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

constexpr int contrastThreshold = 96;

inline int channelDistance(std::uint32_t a, std::uint32_t b) {
    return std::abs(static_cast<int>(a & 0xFF) - static_cast<int>(b & 0xFF)) +
           std::abs(static_cast<int>((a >> 8) & 0xFF) - static_cast<int>((b >> 8) & 0xFF)) +
           std::abs(static_cast<int>((a >> 16) & 0xFF) - static_cast<int>((b >> 16) & 0xFF));
}

}  // namespace

void antialiasEdges(std::uint32_t* dst, const std::uint32_t* src, int width, int height) {
    copyRun(dst, src, static_cast<std::size_t>(width) * height, renduNormal);
    constexpr std::uint32_t half = 0xFEFEFE;
    for (int y = 1; y < height - 1; ++y) {
        const std::uint32_t* mid = src + static_cast<std::ptrdiff_t>(y) * width;
        std::uint32_t* out = dst + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 1; x < width - 1; ++x) {
            const std::uint32_t mean = fourNeighbourMean(mid - width, mid, mid + width, x);
            if (channelDistance(mid[x], mean) > contrastThreshold)
                out[x] = ((mid[x] & half) >> 1) + ((mean & half) >> 1);
        }
    }
}

}  // namespace vz
