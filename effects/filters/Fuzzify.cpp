#include "effects/filters/Fuzzify.hpp"

#include <algorithm>
#include <cmath>

#include "effects/filters/Noise.hpp"

namespace vz {

void fuzzOffsets(FuzzOffsets& offsets, float lo, float hi, int reach) {
    const double limit = reach;
    const double a = std::isfinite(lo) ? std::clamp<double>(lo, -limit, limit) : 0.0;
    const double b = std::isfinite(hi) ? std::clamp<double>(hi, -limit, limit) : 0.0;
    for (int k = 0; k < 256; ++k) offsets[k] = static_cast<int>(std::floor(a + (b - a) * k / 255.0));
}

void fuzzify(std::uint32_t* dst, const std::uint32_t* src, int width, int height, const std::uint8_t* noise,
             const FuzzOffsets& offsets, std::size_t phaseX, std::size_t phaseY) {
    std::size_t i = 0;
    for (int y = 0; y < height; ++y) {
        std::uint32_t* out = dst + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 0; x < width; ++x, ++i) {
            const int sx = std::clamp(x + offsets[noise[(i + phaseX) & noiseTableMask]], 0, width - 1);
            const int sy = std::clamp(y + offsets[noise[(i + phaseY) & noiseTableMask]], 0, height - 1);
            out[x] = src[static_cast<std::ptrdiff_t>(sy) * width + sx];
        }
    }
}

}  // namespace vz
