// The screen reduced to half its width and height, then the small picture copied into
// the four quarters. A last odd column or row is left as it was.
#include <memory>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/ScaleDown.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

class ScaleDownQuad32bpp : public Component {
public:
    ScaleDownQuad32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()) {
        // A layer narrower or lower than 2 pixels has no quarter to draw.
        if (target_.width >= 2 && target_.height >= 2)
            quarter_ = std::make_unique<Layer32bpp>(target_.width / 2, target_.height / 2);
    }

    void run(float) override {
        if (!quarter_) return;
        scaleDown(*quarter_, target_);
        const int qw = quarter_->width, qh = quarter_->height;
        for (int y = 0; y < qh; ++y) {
            const std::uint32_t* small = quarter_->row(y);
            for (int top : {y, y + qh}) {
                copyRun(target_.row(top), small, static_cast<std::size_t>(qw), renduNormal);
                copyRun(target_.row(top) + qw, small, static_cast<std::size_t>(qw), renduNormal);
            }
        }
    }

private:
    Layer32bpp& target_;
    std::unique_ptr<Layer32bpp> quarter_;
};

}  // namespace

VZ_COMPONENT("scaleDownQuad32bpp", ScaleDownQuad32bpp)

}  // namespace vz
