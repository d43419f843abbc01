#include "effects/transitions/NoiseLines.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/transitions/RowShift.hpp"

namespace vz {

std::vector<std::uint32_t> greyNoiseLine(NoiseGenerator& generator, int width) {
    const std::vector<std::uint8_t> bytes = makeNoiseTable(generator);
    std::vector<std::uint32_t> grey(noiseTableSize + static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < grey.size(); ++i) grey[i] = (bytes[i & noiseTableMask] >> 1) * 0x010101u;
    return grey;
}

void noiseLines(Layer32bpp& target, const Layer32bpp& source, int intensity, NoiseGenerator& generator,
                const std::uint32_t* greyNoise) {
    intensity = std::clamp(intensity, 0, 255);
    const int jitter = intensity >> 3;
    const int w = target.width;
    for (int y = 0; y < target.height; ++y) {
        const std::uint32_t r = generator.next();
        const int shift = static_cast<int>((r & 0xFFFF) % static_cast<std::uint32_t>(2 * jitter + 1)) - jitter;
        std::uint32_t* dst = target.row(y);
        copyRowTurned(dst, source.row(y), w, shift);
        if (static_cast<int>(r >> 24) < intensity)
            copyRun(dst, greyNoise + ((r >> 8) & noiseTableMask), static_cast<std::size_t>(w), renduAdd);
    }
}

}  // namespace vz
