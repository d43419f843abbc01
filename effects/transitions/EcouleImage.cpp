// An image running down the screen like wet paint: each column of the source is drawn
// moved down by t * speed * H * f pixels, t the local time (0 before the start), speed in
// layer heights per second and f a per-column factor between 0.5 and 1 that varies
// smoothly across the columns, so the picture drips down in uneven tongues. Above a
// column's moved picture the target keeps what it had. A negative speed runs upwards.
#include <algorithm>
#include <cmath>
#include <vector>

#include "effects/filters/Noise.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

// Neighbouring columns average their noise over this many columns (odd).
constexpr int smoothing = 15;

class EcouleImage32bpp : public Component {
public:
    EcouleImage32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          speed_(in.symbol<KeytrackFloat>()),
          factor_(target_.width),
          drop_(target_.width) {
        in.requireCovers("source", source_, target_);
        in.requireDistinct(target_, source_);
        NoiseGenerator generator(takeRandomSeed());
        const int w = target_.width;
        std::vector<int> raw(w);
        for (int& value : raw) value = generator.nextByte();
        for (int x = 0; x < w; ++x) {
            int sum = 0;
            for (int k = -smoothing / 2; k <= smoothing / 2; ++k) sum += raw[((x + k) % w + w) % w];
            factor_[x] = 0.5f + 0.5f * static_cast<float>(sum) / (255.0f * smoothing);
        }
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const float speed = speed_.sample(t);
        const double travel = std::isfinite(speed) && t > 0.0f ? static_cast<double>(t) * speed * h : 0.0;
        for (int x = 0; x < w; ++x)
            drop_[x] = static_cast<int>(std::clamp(std::trunc(travel * factor_[x]), -double(h), double(h)));
        for (int y = 0; y < h; ++y) {
            std::uint32_t* out = target_.row(y);
            for (int x = 0; x < w; ++x) {
                const int sy = y - drop_[x];
                if (sy >= 0 && sy < h) out[x] = source_.row(sy)[x];
            }
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& speed_;
    std::vector<float> factor_;
    std::vector<int> drop_;  // this run's downward move of each column
};

}  // namespace

VZ_COMPONENT("ecouleImage32bpp", EcouleImage32bpp)

}  // namespace vz
