// Bands sweeping in: the layer is cut into nbBandes horizontal bands of equal height; as
// local time runs from 0 to 1 each band uncovers the source from one side, even bands
// from the left, odd bands from the right. Band i starts at time i / (2 nbBandes) and
// takes half the transition to cross, so the last one ends at 1; the bands arrive one
// after another like a staircase.
#include <algorithm>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/transitions/TransitionTime.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

class BrindleBands32bpp : public Component {
public:
    // nbBandes is held within 1 .. the target's height.
    BrindleBands32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireCovers("source", source_, target_);
        bands_ = std::clamp(in.integer(), 1, target_.height);
        bandOfRow_.resize(target_.height);
        for (int y = 0; y < target_.height; ++y)
            bandOfRow_[y] = static_cast<int>(static_cast<std::int64_t>(y) * bands_ / target_.height);
    }

    void run(float t) override {
        const float progress = transitionProgress(t);
        const int w = target_.width;
        for (int y = 0; y < target_.height; ++y) {
            const int band = bandOfRow_[y];
            const float start = 0.5f * static_cast<float>(band) / static_cast<float>(bands_);
            const float done = std::clamp((progress - start) * 2.0f, 0.0f, 1.0f);
            const int shown = progress >= 1.0f ? w : static_cast<int>(done * static_cast<float>(w));
            if (shown <= 0) continue;
            const std::uint32_t* src = source_.row(y);
            std::uint32_t* dst = target_.row(y);
            const int from = band % 2 == 0 ? 0 : w - shown;
            copyRun(dst + from, src + from, static_cast<std::size_t>(shown), renduNormal);
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    int bands_ = 1;
    std::vector<int> bandOfRow_;
};

}  // namespace

VZ_COMPONENT("brindleBands32bpp", BrindleBands32bpp)

}  // namespace vz
