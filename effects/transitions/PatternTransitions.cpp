// Pattern transitions: as local time runs from 0 to 1, each pixel whose pattern grey has
// been reached switches from the target's picture to the buffer's, dark pattern pixels
// first. Bool switches hard, Add shows a front coloured from a palette, Alpha a soft
// front 32 levels wide. From t = 1 on, the whole buffer is copied.
#include <algorithm>

#include "core/Palette.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/transitions/TransitionTime.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

// What the three variants share: the layers, the size of the run (the target's, taken at
// construction) and the walk over the pixels. The pattern is read with the target's
// width as its row length, the buffer with its own width.
class PatternTransition : public Component {
protected:
    PatternTransition(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          buffer_(in.symbol<Layer32bpp>()),
          pattern_(in.symbol<Layer8bpp>()),
          width_(target_.width),
          height_(target_.height) {
        in.requireCovers("buffer", buffer_, target_);
        in.requirePixelCount("pattern", pattern_, target_);
    }

    // Copies the whole buffer from t = 1 on; before, every target pixel d becomes
    // rule(p, s, d), p being its pattern grey and s its buffer pixel.
    template <class Rule>
    void walk(float t, Rule rule) {
        if (t >= 1.0f) {
            copyRun(target_.pixels, buffer_.pixels, static_cast<std::size_t>(width_) * height_, renduNormal);
            return;
        }
        for (int y = 0; y < height_; ++y) {
            const std::uint8_t* p = pattern_.pixels + static_cast<std::ptrdiff_t>(y) * width_;
            const std::uint32_t* s = buffer_.row(y);
            std::uint32_t* d = target_.row(y);
            for (int x = 0; x < width_; ++x) d[x] = rule(p[x], s[x], d[x]);
        }
    }

    Layer32bpp& target_;
    Layer32bpp& buffer_;
    Layer8bpp& pattern_;
    int width_;
    int height_;
};

class PatternTransitionBool32bpp : public PatternTransition {
public:
    PatternTransitionBool32bpp(ComponentContext& in) : PatternTransition(in) {}

    void run(float t) override {
        // Only the level's low byte counts: a negative time switches the pixels up to
        // the level's byte (t = -0.5 gives -128, byte 128).
        const auto level = static_cast<std::uint8_t>(transitionLevel(t));
        walk(t, [level](std::uint8_t p, std::uint32_t s, std::uint32_t d) { return p <= level ? s : d; });
    }
};

class PatternTransitionAdd32bpp : public PatternTransition {
public:
    PatternTransitionAdd32bpp(ComponentContext& in)
        : PatternTransition(in), palette_(in.symbol<Palette>()), radius_(in.integer()) {}

    void run(float t) override {
        const std::int64_t level = transitionLevel(t);
        // Widths from 128 on could pick entries outside the palette: the index is held
        // inside 0..255 (the front's outer pixels repeat the end colours).
        walk(t, [&](std::uint8_t p, std::uint32_t s, std::uint32_t d) {
            const std::int64_t k = p - level;
            if (k > radius_) return d;
            if (k < -radius_) return s;
            const std::uint32_t glow = palette_.colors[std::clamp<std::int64_t>(128 + k, 0, 255)];
            return blend::op<renduAdd>(glow, k < 0 ? s : d);
        });
    }

private:
    const Palette& palette_;  // read at every run: palette effects may change it
    int radius_;
};

class PatternTransitionAlpha32bpp : public PatternTransition {
public:
    // The line may name a front width; it is not read: the front is always 32 levels.
    PatternTransitionAlpha32bpp(ComponentContext& in) : PatternTransition(in) {}

    void run(float t) override {
        const std::int64_t level = transitionLevel(t);
        // Inside the front the blend level changes from pixel to pixel, so the operator is
        // looked up per pixel there; the pixels before and behind it take the fast paths.
        walk(t, [level](std::uint8_t p, std::uint32_t s, std::uint32_t d) {
            if (p > level) return d;
            const std::int64_t k = p - (level - 32);
            if (k < 0) return s;
            return operatorTable[32 - k](s, d);
        });
    }
};

}  // namespace

VZ_COMPONENT("patternTransitionBool32bpp", PatternTransitionBool32bpp)
VZ_COMPONENT("patternTransitionAdd32bpp", PatternTransitionAdd32bpp)
VZ_COMPONENT("patternTransitionAlpha32bpp", PatternTransitionAlpha32bpp)

}  // namespace vz
