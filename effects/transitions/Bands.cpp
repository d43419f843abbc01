#include "effects/transitions/Bands.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

void sweepBands(Layer32bpp& target, const Layer32bpp& source, int bands, float progress) {
    const int w = target.width;
    for (int y = 0; y < target.height; ++y) {
        const int band = static_cast<int>(static_cast<std::int64_t>(y) * bands / target.height);
        const float start = 0.5f * static_cast<float>(band) / static_cast<float>(bands);
        const float done = std::clamp((progress - start) * 2.0f, 0.0f, 1.0f);
        const int shown = progress >= 1.0f ? w : static_cast<int>(done * static_cast<float>(w));
        if (shown <= 0) continue;
        const int from = band % 2 == 0 ? 0 : w - shown;
        copyRun(target.row(y) + from, source.row(y) + from, static_cast<std::size_t>(shown), renduNormal);
    }
}

}  // namespace vz
