// The box blurs along rows and columns, the four-neighbour blur, the feedback zooms and
// the blurs that pull the picture towards a centre.
#include <memory>
#include <vector>

#include "effects/filters/BoxBlur.hpp"
#include "effects/filters/NeighbourBlur.hpp"
#include "effects/filters/Noise.hpp"
#include "effects/filters/ParticleBlur.hpp"
#include "effects/filters/RadialBlur.hpp"
#include "effects/filters/ScaledDraw.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

enum class BlurDirection { rows, columns };

// The box blurs. A radius of 0 or less copies the source unchanged; larger radii are cut
// to the table's room (64) and to half the line, see boxBlurRadius. Blurring a layer onto
// itself works as if from a copy: the source is copied to a frame kept for that purpose.
template <BlurDirection D>
class BoxBlurFilter : public Component {
public:
    BoxBlurFilter(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), intensity_(in.symbol<KeytrackInt>()) {
        in.requireSameSize("source", source_, target_);
        if (&source_ == &target_) sourceCopy_.resize(sharedCount(target_));
        if (D == BlurDirection::columns) columnSums_.resize(3 * static_cast<std::size_t>(target_.width));
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const int n = boxBlurRadius(intensity_.sample(t), D == BlurDirection::rows ? w : h);
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
        if (D == BlurDirection::rows)
            boxBlurRows(target_.pixels, src, w, h, n, table_.entries());
        else
            boxBlurColumns(target_.pixels, src, w, h, n, table_.entries(), columnSums_.data());
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    BoxBlurTable table_;
    std::vector<std::uint32_t> sourceCopy_;
    std::vector<std::int32_t> columnSums_;
};

using HblurFilter32bpp = BoxBlurFilter<BlurDirection::rows>;
using VblurFilter32bpp = BoxBlurFilter<BlurDirection::columns>;

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
        const int rendu = sampleRendu(rendu_, t);
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

// Blurs the target in place about the tracked normalised centre.
class RadialBlurFilter32bpp : public Component {
public:
    RadialBlurFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          position_(in.symbol<KeytrackVector2>()),
          intensity_(in.symbol<KeytrackInt>()),
          smoothness_(in.symbol<KeytrackInt>()),
          inwardX_(target_.width),
          inwardY_(target_.height) {}

    void run(float t) override {
        const Vector2 at = position_.sample(t);
        const int intensity = intensity_.sample(t);
        const int smoothness = smoothness_.sample(t);
        radialBlur(target_.pixels, target_.width, target_.height, radialCentre(at.x, target_.width),
                   radialCentre(at.y, target_.height), intensity, smoothness, inwardX_.data(), inwardY_.data());
    }

private:
    Layer32bpp& target_;
    KeytrackVector2& position_;
    KeytrackInt& intensity_;
    KeytrackInt& smoothness_;
    std::vector<int> inwardX_;
    std::vector<int> inwardY_;
};

// The noise is drawn once, when the line is read, so the particles keep their speeds.
class ParticleBlurFilter32bpp : public Component {
public:
    ParticleBlurFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          intensity_(in.symbol<KeytrackInt>()),
          noise_([] {
              NoiseGenerator generator(takeRandomSeed());
              return makeNoiseTable(generator);
          }()),
          columns_(particleSpeeds * static_cast<std::size_t>(target_.width)),
          rows_(particleSpeeds * static_cast<std::size_t>(target_.height)) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float t) override {
        particleBlur(target_.pixels, source_.pixels, target_.width, target_.height, noise_.data(), intensity_.sample(t),
                     columns_.data(), rows_.data());
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    std::vector<std::uint8_t> noise_;
    std::vector<int> columns_;
    std::vector<int> rows_;
};

}  // namespace

VZ_COMPONENT("hBlurFilter32bpp", HblurFilter32bpp)
VZ_COMPONENT("vBlurFilter32bpp", VblurFilter32bpp)
VZ_COMPONENT("kernelBlurFilter32bpp", KernelBlurFilter32bpp)
VZ_COMPONENT("zoom32bpp", Zoom32bpp)
VZ_COMPONENT("zoomBlur32bpp", ZoomBlur32bpp)
VZ_COMPONENT("radialBlurFilter32bpp", RadialBlurFilter32bpp)
VZ_COMPONENT("particleBlurFilter32bpp", ParticleBlurFilter32bpp)

}  // namespace vz
