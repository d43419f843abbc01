// Noisy scan lines, like a bad video signal: every row of the source is turned sideways
// by a random jitter of up to intensity / 8 pixels, and a row is also lit by a line of
// grey noise (added, saturating) with a chance of intensity / 256. intensity is held in
// 0-255; 0 copies the source as it is. The random rows change at every run and follow
// the same sequence on every playing of the demo.
#include <algorithm>
#include <vector>

#include "effects/filters/Noise.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/transitions/RowShift.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

class NoiseLines32bpp : public Component {
public:
    NoiseLines32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          intensity_(in.symbol<KeytrackInt>()),
          generator_(takeRandomSeed()) {
        in.requireCovers("source", source_, target_);
        in.requireDistinct(target_, source_);
        // Grey noise of half brightness, long enough for a row to start anywhere in the
        // table and still read a whole row.
        const std::vector<std::uint8_t> bytes = makeNoiseTable(generator_);
        greyNoise_.resize(noiseTableSize + static_cast<std::size_t>(target_.width));
        for (std::size_t i = 0; i < greyNoise_.size(); ++i)
            greyNoise_[i] = (bytes[i & noiseTableMask] >> 1) * 0x010101u;
    }

    void run(float t) override {
        const int intensity = std::clamp(intensity_.sample(t), 0, 255);
        const int jitter = intensity >> 3;
        const int w = target_.width;
        for (int y = 0; y < target_.height; ++y) {
            const std::uint32_t r = generator_.next();
            const int shift = static_cast<int>((r & 0xFFFF) % static_cast<std::uint32_t>(2 * jitter + 1)) - jitter;
            std::uint32_t* dst = target_.row(y);
            copyRowTurned(dst, source_.row(y), w, shift);
            if (static_cast<int>(r >> 24) < intensity)
                copyRun(dst, greyNoise_.data() + ((r >> 8) & noiseTableMask), static_cast<std::size_t>(w), renduAdd);
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    NoiseGenerator generator_;
    std::vector<std::uint32_t> greyNoise_;
};

}  // namespace

VZ_COMPONENT("noiseLines32bpp", NoiseLines32bpp)

}  // namespace vz
