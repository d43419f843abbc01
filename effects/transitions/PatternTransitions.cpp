#include "effects/transitions/PatternTransitions.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/transitions/TransitionTime.hpp"

namespace vz {

namespace {

// Copies the buffer from t = 1 on; before, every target pixel d becomes rule(p, s, d), p
// being its pattern grey and s its buffer pixel.
template <class Rule>
void walk(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, float t, Rule rule) {
    const int w = target.width, h = target.height;
    if (t >= 1.0f) {
        copyRun(target.pixels, buffer.pixels, static_cast<std::size_t>(w) * h, renduNormal);
        return;
    }
    for (int y = 0; y < h; ++y) {
        const std::uint8_t* p = pattern.pixels + static_cast<std::ptrdiff_t>(y) * w;
        const std::uint32_t* s = buffer.row(y);
        std::uint32_t* d = target.row(y);
        for (int x = 0; x < w; ++x) d[x] = rule(p[x], s[x], d[x]);
    }
}

}  // namespace

void patternSwitch(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, float t) {
    const auto level = static_cast<std::uint8_t>(transitionLevel(t));
    walk(target, buffer, pattern, t,
         [level](std::uint8_t p, std::uint32_t s, std::uint32_t d) { return p <= level ? s : d; });
}

void patternGlow(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, const Palette& palette,
                 int radius, float t) {
    const std::int64_t level = transitionLevel(t);
    walk(target, buffer, pattern, t, [&](std::uint8_t p, std::uint32_t s, std::uint32_t d) {
        const std::int64_t k = p - level;
        if (k > radius) return d;
        if (k < -radius) return s;
        const std::uint32_t glow = palette.colors[std::clamp<std::int64_t>(128 + k, 0, 255)];
        return blend::op<renduAdd>(glow, k < 0 ? s : d);
    });
}

void patternFade(Layer32bpp& target, const Layer32bpp& buffer, const Layer8bpp& pattern, float t) {
    const std::int64_t level = transitionLevel(t);
    // Inside the front the blend level changes from pixel to pixel, so the operator is
    // looked up per pixel there; the pixels before and behind it take the fast paths.
    walk(target, buffer, pattern, t, [level](std::uint8_t p, std::uint32_t s, std::uint32_t d) {
        if (p > level) return d;
        const std::int64_t k = p - (level - 32);
        if (k < 0) return s;
        return operatorTable[32 - k](s, d);
    });
}

}  // namespace vz
