// The palette plasmas: a flower-shaped polar plasma, a background of crossed sine waves
// and rings round moving centres, still or turning. Each computes its colour indices from
// tables made once (distances, angles) or once a frame (waves of a row or a turn), and
// shows them through a palette, which other components may rotate or blend meanwhile.
// The speed track scales the pace: the phase of every motion is speed x local time.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/procedural/PaletteKernels.hpp"
#include "effects/procedural/PolarTable.hpp"
#include "effects/procedural/RingField.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// A palette index that runs `perUnit` times through 0-255 per unit of phase, downward so
// that rings drift outward.
std::uint8_t flowIndex(double phase, double perUnit) {
    return static_cast<std::uint8_t>(sine::phaseOfTurns(-phase * perUnit) >> 4);
}

// height x sin(phase), in whole palette indices.
int waveOf(int height, int phase) { return (height * sine::at(phase)) >> sine::shift; }

}  // namespace

// Six petals and three counter-turning ones, twisted into a spiral, on rings that drift
// outward: index = ring(radius) + petals(angle + twist x radius) + flow.
class FlowerPlasma32bpp : public Component {
public:
    static constexpr int petals = 6, counterPetals = 3;
    static constexpr int petalHeight = 48, counterHeight = 24;  // palette indices
    static constexpr double spinPerUnit = 0.25, counterSpinPerUnit = 0.4, flowPerUnit = 0.2;

    FlowerPlasma32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), palette_(in.symbol<Palette>()), speed_(in.symbol<KeytrackFloat>()) {
        const int w = target_.width, h = target_.height;
        // One run through the palette per third of the height; half a turn of twist from
        // the centre to the top edge.
        const double ringPerPixel = 256.0 / std::max(1.0, h / 3.0);
        const double twistPerPixel = 0.5 / std::max(1.0, h / 2.0);
        entries_ = polarTable<std::uint32_t>(w, h, w / 2.0, h / 2.0, [&](double r, double turns) {
            const auto ring = static_cast<std::uint32_t>(static_cast<std::int64_t>(r * ringPerPixel) & 0xFF);
            return ring << 16 | static_cast<std::uint32_t>(sine::phaseOfTurns(turns + r * twistPerPixel));
        });
    }

    void run(float t) override {
        const double phase = static_cast<double>(speed_.sample(t)) * t;
        const int spin = sine::phaseOfTurns(phase * spinPerUnit);
        const int counterSpin = sine::phaseOfTurns(-phase * counterSpinPerUnit);
        const std::uint8_t flow = flowIndex(phase, flowPerUnit);
        for (int a = 0; a < sine::steps; ++a)
            wave_[a] = static_cast<std::uint8_t>(flow + waveOf(petalHeight, a * petals + spin) +
                                                 waveOf(counterHeight, a * counterPetals + counterSpin));
        mapPolarPalette(target_.pixels, entries_.data(), entries_.size(), wave_.data(), palette_.colors.data());
    }

private:
    Layer32bpp& target_;
    const Palette& palette_;
    KeytrackFloat& speed_;
    std::vector<std::uint32_t> entries_;  // ring << 16 | twisted angle, per pixel
    std::array<std::uint8_t, sine::steps> wave_{};
};

// Two sine waves across and two down, with their own paces: index = 128 + across(x) +
// down(y), a soft moving check of colour bands.
class BackSinus32bpp : public Component {
public:
    BackSinus32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          speed_(in.symbol<KeytrackFloat>()),
          columns_(static_cast<std::size_t>(target_.width)),
          indices_(columns_.size()) {}

    void run(float t) override {
        const double phase = static_cast<double>(speed_.sample(t)) * t;
        const int w = target_.width, h = target_.height;
        for (int x = 0; x < w; ++x) {
            const double u = static_cast<double>(x) / w;  // waves per width
            columns_[x] = static_cast<std::uint8_t>(128 + waveOf(64, sine::phaseOfTurns(2.0 * u + 0.31 * phase)) +
                                                    waveOf(40, sine::phaseOfTurns(3.3 * u - 0.17 * phase + 0.4)));
        }
        for (int y = 0; y < h; ++y) {
            const double v = static_cast<double>(y) / h;
            const auto row = static_cast<std::uint8_t>(waveOf(64, sine::phaseOfTurns(1.5 * v + 0.23 * phase)) +
                                                       waveOf(40, sine::phaseOfTurns(2.7 * v - 0.29 * phase + 0.1)));
            rowIndices(indices_.data(), columns_.data(), columns_.size(), row);
            copyRunPalette(target_.row(y), indices_.data(), palette_.colors.data(), indices_.size());
        }
    }

private:
    Layer32bpp& target_;
    const Palette& palette_;
    KeytrackFloat& speed_;
    std::vector<std::uint8_t> columns_, indices_;
};

namespace {

// The rings of both sinus-circle keywords: a crest every fifth of the target's height.
RingField ringFieldFor(const Layer& target) { return RingField(target.width, target.height, target.height / 5.0); }

}  // namespace

// Three ring systems whose centres wander on Lissajous paths over the whole target.
class SinusCircles32bpp : public Component {
public:
    SinusCircles32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          speed_(in.symbol<KeytrackFloat>()),
          field_(ringFieldFor(target_)) {}

    void run(float t) override {
        const double phase = static_cast<double>(speed_.sample(t)) * t;
        // Paces (turns per unit of phase) of each centre's x and y, and their starts.
        static constexpr double pace[RingField::centres][2] = {{0.11, 0.13}, {0.07, 0.17}, {0.19, 0.05}};
        static constexpr double start[RingField::centres][2] = {{0.0, 0.1}, {0.45, 0.7}, {0.8, 0.3}};
        std::array<RingCentre, RingField::centres> at{};
        const double w = target_.width, h = target_.height;
        for (int k = 0; k < RingField::centres; ++k) {
            at[k].x = w / 2 + 0.45 * w * sine::at(sine::phaseOfTurns(pace[k][0] * phase + start[k][0])) / sine::one;
            at[k].y = h / 2 + 0.45 * h * sine::cosAt(sine::phaseOfTurns(pace[k][1] * phase + start[k][1])) / sine::one;
        }
        field_.draw(target_, at, palette_.colors.data());
    }

private:
    Layer32bpp& target_;
    const Palette& palette_;
    KeytrackFloat& speed_;
    RingField field_;
};

// Three ring systems a third of a turn apart round the target's centre, their distance
// from it breathing, the whole figure turned by the angle track (radians, clockwise).
class RotatedSinusCircles32bpp : public Component {
public:
    RotatedSinusCircles32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          speed_(in.symbol<KeytrackFloat>()),
          angle_(in.symbol<KeytrackFloat>()),
          field_(ringFieldFor(target_)) {}

    void run(float t) override {
        const double phase = static_cast<double>(speed_.sample(t)) * t;
        const double turn = angle_.sample(t) / (2.0 * std::numbers::pi);
        std::array<RingCentre, RingField::centres> at{};
        const double w = target_.width, h = target_.height;
        for (int k = 0; k < RingField::centres; ++k) {
            const double distance = h * (0.25 + 0.1 * sine::at(sine::phaseOfTurns(0.2 * phase + k / 3.0)) / sine::one);
            const int direction = sine::phaseOfTurns(turn + k / 3.0);
            at[k].x = w / 2 + distance * sine::cosAt(direction) / sine::one;
            at[k].y = h / 2 + distance * sine::at(direction) / sine::one;
        }
        field_.draw(target_, at, palette_.colors.data());
    }

private:
    Layer32bpp& target_;
    const Palette& palette_;
    KeytrackFloat& speed_;
    KeytrackFloat& angle_;
    RingField field_;
};

VZ_COMPONENT("flowerPlasma32bpp", FlowerPlasma32bpp)
VZ_COMPONENT("backSinus32bpp", BackSinus32bpp)
VZ_COMPONENT("sinusCircles32bpp", SinusCircles32bpp)
VZ_COMPONENT("rotatedSinusCircles32bpp", RotatedSinusCircles32bpp)

}  // namespace vz
