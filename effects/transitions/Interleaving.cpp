// Interleaved rows revealing a picture: as local time runs from 0 to 1 the source's even
// rows slide in from the left and its odd rows from the right, meeting in place at 1.
// Row pixels not yet reached keep the target's picture.
#include "effects/transitions/RowShift.hpp"
#include "effects/transitions/TransitionTime.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

class Interleaving32bpp : public Component {
public:
    Interleaving32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireCovers("source", source_, target_);
    }

    void run(float t) override {
        const int w = target_.width;
        const int away = static_cast<int>((1.0f - transitionProgress(t)) * static_cast<float>(w));
        for (int y = 0; y < target_.height; ++y)
            copyRowSlid(target_.row(y), source_.row(y), w, y % 2 == 0 ? -away : away);
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
};

}  // namespace

VZ_COMPONENT("interleaving32bpp", Interleaving32bpp)

}  // namespace vz
