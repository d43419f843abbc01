// A window of a layer copied into a smaller one, and a layer halved in both directions.
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/LayerRect.hpp"
#include "effects/rendu/ScaleDown.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

// The target is filled from the source's pixel (posX, posY) on, one target row per source
// row. The window is not clipped to the source: past its right edge a row reads on into
// the following source row. Pixels that would come from outside the source's memory are
// left as they are. A layer cropped from itself gets what that copy, row by row and
// pixel by pixel, leaves in it.
class Crop32bpp : public Component {
public:
    Crop32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          posX_(in.integer()),
          posY_(in.integer()) {}

    void run(float) override {
        target_.posX = 0;
        target_.posY = 0;
        copyRect(target_, source_, posX_, posY_, target_.width, target_.height, renduNormal);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    int posX_;
    int posY_;
};

// The target is written with a row stride of half the source's width whatever its own
// width; rows beyond the target's memory are not written.
class ScaleDown32bpp : public Component {
public:
    ScaleDown32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {}

    void run(float) override { scaleDown(target_, source_); }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
};

VZ_COMPONENT("crop", Crop32bpp)
VZ_COMPONENT("scaleDown32bpp", ScaleDown32bpp)

}  // namespace vz
