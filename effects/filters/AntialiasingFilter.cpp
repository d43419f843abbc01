// Softens only the hard edges: an inner pixel whose colour differs strongly from the mean
// of its four neighbours becomes the average of itself and that mean; every other pixel,
// the border included, is copied unchanged.
#include <cstdlib>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

// Sum of the three channel differences above which a pixel counts as an edge: a grey
// step of 32 per channel.
constexpr int contrastThreshold = 96;

inline int channelDistance(std::uint32_t a, std::uint32_t b) {
    return std::abs(static_cast<int>(a & 0xFF) - static_cast<int>(b & 0xFF)) +
           std::abs(static_cast<int>((a >> 8) & 0xFF) - static_cast<int>((b >> 8) & 0xFF)) +
           std::abs(static_cast<int>((a >> 16) & 0xFF) - static_cast<int>((b >> 16) & 0xFF));
}

class Antialiasing32bpp : public Component {
public:
    Antialiasing32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float) override {
        const int w = target_.width, h = target_.height;
        copyRun(target_.pixels, source_.pixels, sharedCount(target_), renduNormal);
        constexpr std::uint32_t quarter = 0xFCFCFC, half = 0xFEFEFE;
        for (int y = 1; y < h - 1; ++y) {
            const std::uint32_t* up = source_.row(y - 1);
            const std::uint32_t* mid = source_.row(y);
            const std::uint32_t* down = source_.row(y + 1);
            std::uint32_t* out = target_.row(y);
            for (int x = 1; x < w - 1; ++x) {
                const std::uint32_t mean =
                    ((up[x] & quarter) + (mid[x - 1] & quarter) + (mid[x + 1] & quarter) + (down[x] & quarter)) >> 2;
                if (channelDistance(mid[x], mean) > contrastThreshold)
                    out[x] = ((mid[x] & half) >> 1) + ((mean & half) >> 1);
            }
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
};

}  // namespace

VZ_COMPONENT("antialiasing32bpp", Antialiasing32bpp)

}  // namespace vz
