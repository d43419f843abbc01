// The box blurs along rows and columns, the four-neighbour blur and the feedback zooms.
#include <memory>
#include <vector>

#include "effects/filters/BoxBlur.hpp"
#include "effects/filters/NeighbourBlur.hpp"
#include "effects/filters/ScaledDraw.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// The box blurs. A radius of 0 or less copies the source unchanged; larger radii are cut
// to the table's room (64), see boxBlurRadius. Blurring a layer onto
// itself works as if from a copy: the source is copied to a frame kept for that purpose.
class BoxBlurFilter : public Component {
public:
    enum Direction { rows, columns };

    BoxBlurFilter(ComponentContext& in, Direction direction)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          intensity_(in.symbol<KeytrackInt>()),
          direction_(direction),
          width_(target_.width),
          height_(target_.height) {
        in.requireSameSize("source", source_, target_);
        if (&source_ == &target_) sourceCopy_.resize(sharedCount(target_));
        if (direction == columns) columnSums_.resize(3 * static_cast<std::size_t>(width_));
    }

    void run(float t) override {
        radius_ = intensity_.sample(t);
        const int n = boxBlurRadius(radius_);
        if (n == 0) {
            copyRun(target_.pixels, source_.pixels, sharedCount(target_), renduNormal);
            return;
        }
        table_.build(n);  // on every run, as the radius may change from frame to frame
        const std::uint32_t* src = source_.pixels;
        if (!sourceCopy_.empty()) {
            copyRun(sourceCopy_.data(), src, sourceCopy_.size(), renduNormal);
            src = sourceCopy_.data();
        }
        if (direction_ == rows)
            boxBlurRows(target_.pixels, src, width_, height_, n, table_.entries());
        else
            boxBlurColumns(target_.pixels, src, width_, height_, n, table_.entries(), columnSums_.data());
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    Direction direction_;
    int width_;
    int height_;
    int radius_ = 4;  // the last sampled intensity
    BoxBlurTable table_;
    std::vector<std::uint32_t> sourceCopy_;
    std::vector<std::int32_t> columnSums_;
};

class HblurFilter32bpp : public BoxBlurFilter {
public:
    HblurFilter32bpp(ComponentContext& in) : BoxBlurFilter(in, rows) {}
};

class VblurFilter32bpp : public BoxBlurFilter {
public:
    VblurFilter32bpp(ComponentContext& in) : BoxBlurFilter(in, columns) {}
};

class KernelBlurFilter32bpp : public Component {
public:
    KernelBlurFilter32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float) override { fourNeighbourBlur(target_.pixels, source_.pixels, target_.width, target_.height); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
};

// Feedback zoom: the target is copied to a temporary layer, which is drawn back onto the
// target scaled by z in both directions and centred, through the sampled rendu. Every
// pixel of the copy is drawn, black included.
class Zoom32bpp : public Component {
public:
    Zoom32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), zoom_(in.symbol<KeytrackFloat>()), rendu_(in.symbol<KeytrackInt>()) {}

    void run(float t) override {
        auto copy = std::make_unique<Layer32bpp>(target_.width, target_.height);
        copyRun(copy->pixels, target_.pixels, sharedCount(target_), renduNormal);
        const int rendu = clampRendu(rendu_.sample(t));
        const float z = zoom_.sample(t);
        drawScaled(target_, *copy, 0.0f, 0.0f, z, z, rendu);
    }

private:
    Layer32bpp& target_;
    KeytrackFloat& zoom_;
    KeytrackInt& rendu_;
};

// Zoom with blur for feedback trails: the target is blurred by the four-neighbour blur
// into a copy (whose border keeps the target's border), and the copy is drawn back
// "normal", scaled by z and centred on the tracked normalised position. Where a z below
// 1 leaves the target uncovered, the old picture stays.
class ZoomBlur32bpp : public Component {
public:
    ZoomBlur32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          position_(in.symbol<KeytrackVector2>()),
          zoom_(in.symbol<KeytrackFloat>()),
          blurred_(target_.width, target_.height) {}

    void run(float t) override {
        copyRun(blurred_.pixels, target_.pixels, sharedCount(target_), renduNormal);
        fourNeighbourBlur(blurred_.pixels, target_.pixels, target_.width, target_.height);
        const Vector2 at = position_.sample(t);
        const float z = zoom_.sample(t);
        drawScaled(target_, blurred_, at.x, at.y, z, z, renduNormal);
    }

private:
    Layer32bpp& target_;
    KeytrackVector2& position_;
    KeytrackFloat& zoom_;
    Layer32bpp blurred_;
};

}  // namespace

VZ_COMPONENT("hBlurFilter32bpp", HblurFilter32bpp)
VZ_COMPONENT("vBlurFilter32bpp", VblurFilter32bpp)
VZ_COMPONENT("kernelBlurFilter32bpp", KernelBlurFilter32bpp)
VZ_COMPONENT("zoom32bpp", Zoom32bpp)
VZ_COMPONENT("zoomBlur32bpp", ZoomBlur32bpp)

}  // namespace vz
