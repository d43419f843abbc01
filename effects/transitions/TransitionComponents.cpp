// The transitions and scan-line effects: bands, dripping paint, interleaved rows, noisy
// lines, the pattern transitions and the two shears.
#include <algorithm>
#include <vector>

#include "core/Palette.hpp"
#include "effects/filters/Noise.hpp"
#include "effects/transitions/Bands.hpp"
#include "effects/transitions/Drip.hpp"
#include "effects/transitions/NoiseLines.hpp"
#include "effects/transitions/PatternTransitions.hpp"
#include "effects/transitions/ScanLines.hpp"
#include "effects/transitions/TransitionTime.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

// nbBandes is held within 1 .. the target's height.
class BrindleBands32bpp : public Component {
public:
    BrindleBands32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireCovers("source", source_, target_);
        bands_ = std::clamp(in.integer(), 1, target_.height);
    }

    void run(float t) override { sweepBands(target_, source_, bands_, transitionProgress(t)); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    int bands_ = 1;
};

// The columns' speeds are drawn once, when the line is read.
class EcouleImage32bpp : public Component {
public:
    EcouleImage32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          speed_(in.symbol<KeytrackFloat>()),
          drops_(target_.width) {
        in.requireCovers("source", source_, target_);
        in.requireDistinct(target_, source_);
        NoiseGenerator generator(takeRandomSeed());
        factors_ = dripFactors(target_.width, generator);
    }

    void run(float t) override { drip(target_, source_, factors_.data(), drops_.data(), t, speed_.sample(t)); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& speed_;
    std::vector<float> factors_;
    std::vector<int> drops_;
};

class Interleaving32bpp : public Component {
public:
    Interleaving32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireCovers("source", source_, target_);
    }

    void run(float t) override { interleaveRows(target_, source_, transitionProgress(t)); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
};

// The random rows change at every run and follow the same sequence on every playing of
// the demo.
class NoiseLines32bpp : public Component {
public:
    NoiseLines32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          intensity_(in.symbol<KeytrackInt>()),
          generator_(takeRandomSeed()) {
        in.requireCovers("source", source_, target_);
        in.requireDistinct(target_, source_);
        greyNoise_ = greyNoiseLine(generator_, target_.width);
    }

    void run(float t) override { noiseLines(target_, source_, intensity_.sample(t), generator_, greyNoise_.data()); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackInt& intensity_;
    NoiseGenerator generator_;
    std::vector<std::uint32_t> greyNoise_;
};

// The layers the three pattern transitions share, in the order the lines name them.
struct PatternLayers {
    PatternLayers(ComponentContext& in)
        : target(in.symbol<Layer32bpp>()), buffer(in.symbol<Layer32bpp>()), pattern(in.symbol<Layer8bpp>()) {
        in.requireCovers("buffer", buffer, target);
        in.requirePixelCount("pattern", pattern, target);
    }
    Layer32bpp& target;
    Layer32bpp& buffer;
    Layer8bpp& pattern;
};

class PatternTransitionBool32bpp : public Component {
public:
    PatternTransitionBool32bpp(ComponentContext& in) : layers_(in) {}

    void run(float t) override { patternSwitch(layers_.target, layers_.buffer, layers_.pattern, t); }

private:
    PatternLayers layers_;
};

class PatternTransitionAdd32bpp : public Component {
public:
    PatternTransitionAdd32bpp(ComponentContext& in)
        : layers_(in), palette_(in.symbol<Palette>()), radius_(in.integer()) {}

    void run(float t) override { patternGlow(layers_.target, layers_.buffer, layers_.pattern, palette_, radius_, t); }

private:
    PatternLayers layers_;
    const Palette& palette_;  // read at every run: palette effects may change it
    int radius_;
};

// The line may name a front width; it is not read: the front is always 32 levels.
class PatternTransitionAlpha32bpp : public Component {
public:
    PatternTransitionAlpha32bpp(ComponentContext& in) : layers_(in) {}

    void run(float t) override { patternFade(layers_.target, layers_.buffer, layers_.pattern, t); }

private:
    PatternLayers layers_;
};

class Skewtel32bpp : public Component {
public:
    Skewtel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), amplitude_(in.symbol<KeytrackFloat>()) {
        in.requireCovers("source", source_, target_);
    }

    void run(float t) override { skewIn(target_, source_, amplitude_.sample(t), transitionProgress(t)); }

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

    void run(float t) override { shearRows(target_, source_, amplitude_.sample(t)); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& amplitude_;
};

}  // namespace

VZ_COMPONENT("brindleBands32bpp", BrindleBands32bpp)
VZ_COMPONENT("ecouleImage32bpp", EcouleImage32bpp)
VZ_COMPONENT("interleaving32bpp", Interleaving32bpp)
VZ_COMPONENT("noiseLines32bpp", NoiseLines32bpp)
VZ_COMPONENT("patternTransitionBool32bpp", PatternTransitionBool32bpp)
VZ_COMPONENT("patternTransitionAdd32bpp", PatternTransitionAdd32bpp)
VZ_COMPONENT("patternTransitionAlpha32bpp", PatternTransitionAlpha32bpp)
VZ_COMPONENT("skewtel32bpp", Skewtel32bpp)
VZ_COMPONENT("skewtelFilter32bpp", SkewtelFilter32bpp)

}  // namespace vz
