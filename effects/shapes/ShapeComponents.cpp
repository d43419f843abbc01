// Shapes in one colour: circle lines (whole or dashed, antialiased), discs and coronas
// with exact edges through a rendu, big wandering discs, and a star-shaped flower. Shapes
// placed by a position track take it in normalised units (-1..1 across the target, as
// sprites are placed); radii are in pixels.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/procedural/PolarTable.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "effects/shapes/Discs.hpp"
#include "effects/shapes/PolarMask.hpp"
#include "effects/shapes/RingOutline.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

Round placed(const Vector2& at, float radius, const Layer& target) {
    return {(at.x + 1.0) * target.halfWidth, (at.y + 1.0) * target.halfHeight, radius};
}

// The corona's hole: three quarters of its radius.
constexpr double coronaHole = 0.75;
constexpr int circleDashes = 32;

}  // namespace

// The parameters shared by the placed shapes; `Draw` says what is drawn.
template <class Draw, bool hasRendu>
class PlacedShape : public Component {
public:
    PlacedShape(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          position_(in.symbol<KeytrackVector2>()),
          radius_(in.symbol<KeytrackFloat>()),
          rendu_(hasRendu ? &in.symbol<KeytrackInt>() : nullptr) {}
    void run(float t) override {
        const Round round = placed(position_.sample(t), radius_.sample(t), target_);
        Draw{}(target_, round, colour_.value, rendu_ ? sampleRendu(*rendu_, t) : renduNormal);
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackVector2& position_;
    KeytrackFloat& radius_;
    KeytrackInt* rendu_;
};

struct DrawCircle {
    void operator()(Layer32bpp& target, const Round& round, std::uint32_t colour, int) const {
        drawRingOutline(target, round, colour);
    }
};
struct DrawDashedCircle {
    void operator()(Layer32bpp& target, const Round& round, std::uint32_t colour, int) const {
        drawRingOutline(target, round, colour, circleDashes);
    }
};
struct DrawDisc {
    void operator()(Layer32bpp& target, const Round& round, std::uint32_t colour, int rendu) const {
        fillDisc(target, round, colour, rendu);
    }
};
struct DrawCorona {
    void operator()(Layer32bpp& target, const Round& round, std::uint32_t colour, int rendu) const {
        fillCorona(target, round, {round.x, round.y, round.radius * coronaHole}, colour, rendu);
    }
};

using Circle32bpp = PlacedShape<DrawCircle, false>;
using DashedCircle32bpp = PlacedShape<DrawDashedCircle, false>;
using ShapeDisc32bpp = PlacedShape<DrawDisc, true>;
using ShapeCorona32bpp = PlacedShape<DrawCorona, true>;

// Five discs from a fifth to nearly half the target's height across, each wandering on its
// own Lissajous path round the centre at a fixed pace; where they overlap an additive
// rendu makes them glow.
class BigDiscs32bpp : public Component {
public:
    static constexpr int count = 5;

    BigDiscs32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), colour_(in.symbol<Color>()), rendu_(in.symbol<KeytrackInt>()) {}

    void run(float t) override {
        // Radius (in heights), paces of x and y (turns a second), and starting phases.
        static constexpr double discs[count][5] = {{0.45, 0.050, 0.070, 0.0, 0.25},
                                                   {0.38, 0.083, 0.061, 0.3, 0.1},
                                                   {0.30, 0.067, 0.097, 0.6, 0.8},
                                                   {0.26, 0.110, 0.043, 0.15, 0.5},
                                                   {0.20, 0.037, 0.121, 0.8, 0.35}};
        const int rendu = sampleRendu(rendu_, t);
        const double w = target_.width, h = target_.height;
        for (const auto& d : discs) {
            const double x = w / 2 + 0.35 * w * sine::at(sine::phaseOfTurns(d[1] * t + d[3])) / sine::one;
            const double y = h / 2 + 0.35 * h * sine::cosAt(sine::phaseOfTurns(d[2] * t + d[4])) / sine::one;
            fillDisc(target_, {x, y, d[0] * h}, colour_.value, rendu);
        }
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackInt& rendu_;
};

// Eight rounded petals on narrow necks round the target's centre, reaching 0.45 of the
// smaller side, turning a tenth of a turn a second and breathing by 8 % every two seconds.
class StarFlower32bpp : public Component {
public:
    static constexpr int petals = 8;
    static constexpr double reach = 0.45, spin = 0.1, breath = 0.08, breathPace = 0.5;

    StarFlower32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), colour_(in.symbol<Color>()), rendu_(in.symbol<KeytrackInt>()) {
        const int w = target_.width, h = target_.height;
        entries_ = polarTable<std::uint32_t>(w, h, w / 2.0, h / 2.0, [](double r, double turns) {
            return static_cast<std::uint32_t>(std::lround(r * polarDistanceScale)) << polarAngleBits |
                   static_cast<std::uint32_t>(sine::phaseOfTurns(turns));
        });
        // The petal profile: |cos(petals x angle / 2)| squared, over 0.3 of the reach.
        for (int a = 0; a < sine::steps; ++a) {
            const double c = std::fabs(sine::cosAt(a * petals / 2) / static_cast<double>(sine::one));
            profile_[a] = 0.3 + 0.7 * c * c;
        }
    }

    void run(float t) override {
        const double size = std::min(target_.width, target_.height) * reach *
                            (1.0 + breath * sine::at(sine::phaseOfTurns(breathPace * t)) / sine::one) *
                            polarDistanceScale;
        const int turn = sine::phaseOfTurns(spin * t);
        for (int a = 0; a < sine::steps; ++a)
            edge_[a] = static_cast<std::uint32_t>(size * profile_[(a - turn) & sine::mask]);
        // Only the square round the flower's reach can hold it.
        const int w = target_.width, h = target_.height;
        const int reachPixels = static_cast<int>(size / polarDistanceScale) + 1;
        const int x0 = std::max(0, w / 2 - reachPixels), x1 = std::min(w, w / 2 + reachPixels + 1);
        const int y0 = std::max(0, h / 2 - reachPixels), y1 = std::min(h, h / 2 + reachPixels + 1);
        const int rendu = sampleRendu(rendu_, t);
        for (int y = y0; y < y1; ++y)
            fillPolarMask(target_.row(y) + x0, entries_.data() + static_cast<std::size_t>(y) * w + x0,
                          static_cast<std::size_t>(x1 - x0), edge_.data(), colour_.value, rendu);
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackInt& rendu_;
    std::vector<std::uint32_t> entries_;
    std::array<double, sine::steps> profile_{};
    std::array<std::uint32_t, sine::steps> edge_{};
};

VZ_COMPONENT("circle32bpp", Circle32bpp)
VZ_COMPONENT("dashedCircle32bpp", DashedCircle32bpp)
VZ_COMPONENT("shapeDisc32bpp", ShapeDisc32bpp)
VZ_COMPONENT("shapeCorona32bpp", ShapeCorona32bpp)
VZ_COMPONENT("bigDiscs32bpp", BigDiscs32bpp)
VZ_COMPONENT("starFlower32bpp", StarFlower32bpp)

}  // namespace vz
