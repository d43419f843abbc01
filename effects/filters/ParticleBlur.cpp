#include "effects/filters/ParticleBlur.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/filters/Noise.hpp"
#include "effects/filters/TowardsCentre.hpp"

namespace vz {

void particleBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height, const std::uint8_t* noise,
                  int intensity, int* columns, int* rows) {
    const int w = width, h = height;
    const int k = std::clamp(intensity, 0, 256);
    // Speed s keeps m = 256 - k (s + 1) / 16 of the distance to the centre.
    for (int s = 0; s < particleSpeeds; ++s) {
        const int m = 256 - ((k * (s + 1)) >> 4);
        fillTowardsCentre(columns + static_cast<std::size_t>(s) * w, w, w >> 1, m);
        fillTowardsCentre(rows + static_cast<std::size_t>(s) * h, h, h >> 1, m);
    }
    std::size_t i = 0;
    for (int y = 0; y < h; ++y) {
        std::uint32_t* out = dst + static_cast<std::ptrdiff_t>(y) * w;
        for (int x = 0; x < w; ++x, ++i) {
            const std::size_t s = noise[i & noiseTableMask] >> 4;
            out[x] = src[static_cast<std::ptrdiff_t>(rows[s * h + y]) * w + columns[s * w + x]];
        }
    }
}

}  // namespace vz
