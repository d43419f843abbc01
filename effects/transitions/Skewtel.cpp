// The two shear effects.
//
// skewtel32bpp, a transition: the source slides in from the right, each row lagging
// behind the one above by a share of the transition set by the amplitude, so the
// incoming picture's left edge is a slanted line. Row y is done at
// clamp(t (1 + a) - a y / H, 0, 1) and then shows the source shifted right by
// (1 - done) W pixels; the left part of the row keeps the target's picture.
//
// skewtelFilter32bpp, a filter: each row of the source is turned sideways (what leaves
// one end comes back at the other) by amplitude (y - H/2) / (H/2) pixels, a shear about
// the middle row: the top goes left and the bottom right for a positive amplitude.
#include <algorithm>
#include <cmath>

#include "effects/transitions/RowShift.hpp"
#include "effects/transitions/TransitionTime.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// A float held within +-limit; not a number gives 0.
float heldWithin(float value, float limit) { return std::isnan(value) ? 0.0f : std::clamp(value, -limit, limit); }

class Skewtel32bpp : public Component {
public:
    Skewtel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), amplitude_(in.symbol<KeytrackFloat>()) {
        in.requireCovers("source", source_, target_);
    }

    void run(float t) override {
        // A negative amplitude would make the first rows finish late: held at 0 or more.
        const float a = std::max(0.0f, heldWithin(amplitude_.sample(t), 1000.0f));
        const float progress = transitionProgress(t);
        const int w = target_.width, h = target_.height;
        for (int y = 0; y < h; ++y) {
            const float done = progress >= 1.0f ? 1.0f : std::clamp(progress * (1.0f + a) - a * y / h, 0.0f, 1.0f);
            const int shift = static_cast<int>((1.0f - done) * static_cast<float>(w));
            copyRowSlid(target_.row(y), source_.row(y), w, shift);
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& amplitude_;
};

class SkewtelFilter32bpp : public Component {
public:
    SkewtelFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), amplitude_(in.symbol<KeytrackFloat>()) {
        in.requireCovers("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const float a = heldWithin(amplitude_.sample(t), 1.0e6f);
        const float half = std::max(1, h / 2);
        for (int y = 0; y < h; ++y) {
            const int shift = static_cast<int>(a * static_cast<float>(y - h / 2) / half);
            copyRowTurned(target_.row(y), source_.row(y), w, shift);
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& amplitude_;
};

}  // namespace

VZ_COMPONENT("skewtel32bpp", Skewtel32bpp)
VZ_COMPONENT("skewtelFilter32bpp", SkewtelFilter32bpp)

}  // namespace vz
