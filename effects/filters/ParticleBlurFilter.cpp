// Pixels bursting outwards: each target pixel takes the source pixel pulled towards the
// centre of the layer by a fraction of the intensity that depends on the pixel's noise
// value (sixteen speeds). As the intensity grows, the picture around the centre is
// scattered outwards like particles. The noise is fixed at construction, so the
// particles move coherently from frame to frame.
#include <algorithm>
#include <vector>

#include "effects/filters/Noise.hpp"
#include "effects/filters/TowardsCentre.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

constexpr int speeds = 16;

class ParticleBlurFilter32bpp : public Component {
public:
    // trackIntensity 0-256: 256 pulls the fastest particles' samples to the centre.
    ParticleBlurFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          intensity_(in.symbol<KeytrackInt>()),
          noise_([] {
              NoiseGenerator generator(takeRandomSeed());
              return makeNoiseTable(generator);
          }()),
          columns_(speeds * static_cast<std::size_t>(target_.width)),
          rows_(speeds * static_cast<std::size_t>(target_.height)) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const int k = std::clamp(intensity_.sample(t), 0, 256);
        // Speed s keeps m = 256 - k (s + 1) / 16 of the distance to the centre.
        for (int s = 0; s < speeds; ++s) {
            const int m = 256 - ((k * (s + 1)) >> 4);
            fillTowardsCentre(&columns_[static_cast<std::size_t>(s) * w], w, w >> 1, m);
            fillTowardsCentre(&rows_[static_cast<std::size_t>(s) * h], h, h >> 1, m);
        }
        std::size_t i = 0;
        for (int y = 0; y < h; ++y) {
            std::uint32_t* out = target_.row(y);
            for (int x = 0; x < w; ++x, ++i) {
                const std::size_t s = noise_[i & noiseTableMask] >> 4;
                out[x] = source_.row(rows_[s * h + y])[columns_[s * w + x]];
            }
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    std::vector<std::uint8_t> noise_;
    std::vector<int> columns_;  // speeds tables of width entries
    std::vector<int> rows_;     // speeds tables of height entries
};

}  // namespace

VZ_COMPONENT("particleBlurFilter32bpp", ParticleBlurFilter32bpp)

}  // namespace vz
