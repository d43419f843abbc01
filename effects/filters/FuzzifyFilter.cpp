// Noise effect: each target pixel takes the source pixel at a random offset, the offsets
// lying between the sampled minimum and maximum (in pixels, both directions).
#include <algorithm>
#include <array>
#include <cmath>

#include "effects/filters/Noise.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

class FuzzifyFilter32bpp : public Component {
public:
    FuzzifyFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          min_(in.symbol<KeytrackFloat>()),
          max_(in.symbol<KeytrackFloat>()),
          generator_(takeRandomSeed()),
          noise_(makeNoiseTable(generator_)) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float t) override {
        buildOffsets(min_.sample(t), max_.sample(t));
        // Each frame reads the noise table from new places, so the noise moves.
        const std::size_t phaseX = generator_.next() & noiseTableMask;
        const std::size_t phaseY = generator_.next() & noiseTableMask;
        const int w = target_.width, h = target_.height;
        std::size_t i = 0;
        for (int y = 0; y < h; ++y) {
            std::uint32_t* out = target_.row(y);
            for (int x = 0; x < w; ++x, ++i) {
                const int sx = std::clamp(x + offsets_[noise_[(i + phaseX) & noiseTableMask]], 0, w - 1);
                const int sy = std::clamp(y + offsets_[noise_[(i + phaseY) & noiseTableMask]], 0, h - 1);
                out[x] = source_.row(sy)[sx];
            }
        }
    }

private:
    // offsets_[b] = floor(lo + (hi - lo) * b / 255): a noise byte to an offset. The bounds
    // may come in either order and are held within the layer's larger side.
    void buildOffsets(float lo, float hi) {
        const double reach = std::max(target_.width, target_.height);
        const double a = std::isfinite(lo) ? std::clamp<double>(lo, -reach, reach) : 0.0;
        const double b = std::isfinite(hi) ? std::clamp<double>(hi, -reach, reach) : 0.0;
        for (int k = 0; k < 256; ++k) offsets_[k] = static_cast<int>(std::floor(a + (b - a) * k / 255.0));
    }

    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& min_;
    KeytrackFloat& max_;
    NoiseGenerator generator_;
    std::vector<std::uint8_t> noise_;
    std::array<int, 256> offsets_{};
};

}  // namespace

VZ_COMPONENT("fuzzifyFilter32bpp", FuzzifyFilter32bpp)

}  // namespace vz
