#include "effects/sprites/SpriteDrawing.hpp"

#include <algorithm>
#include <cmath>

#include "core/Fixed16.hpp"

namespace vz {

namespace {

// Sizes and positions far beyond any layer are held at +-2^30, so the integer sums of
// clipping cannot overflow; NaN counts as 0.
constexpr double limit = 1073741824.0;
int saturate(double v) {
    if (!(v > -limit)) return std::isnan(v) ? 0 : -static_cast<int>(limit);
    if (v > limit) return static_cast<int>(limit);
    return static_cast<int>(v);
}

// Only called for a scale that gives a drawn size of at least one pixel, so the step is
// below 2^31 (picture sides are at most 32768).
std::uint32_t stepOf(float scale) { return fixed16::stepForScale(scale); }

// The longest run from `start` (16.16) stepping `step` whose last position still lies
// in a picture of `size` pixels. Rounding of the float scale could otherwise let the
// last target pixel read one column or row past the picture.
std::int64_t runInside(std::uint64_t start, std::uint32_t step, int size) {
    const std::uint64_t end = static_cast<std::uint64_t>(size) << fixed16::shift;
    if (start >= end) return 0;
    if (step == 0) return limit;
    return static_cast<std::int64_t>((end - 1 - start) / step) + 1;
}

// Opacity 0 keeps the target, 32 and above copy the source, 1-31 blend by that level.
inline void alphaPixel(std::uint32_t alpha, std::uint32_t s, std::uint32_t& d) {
    if (alpha == 0) return;
    d = alpha >= 32 ? s : alphaMapTable[alpha](s, d);
}

}  // namespace

void placeSprite(Sprite& sprite, const Layer& target, float x, float y) {
    const auto corner = [](float at, int side, int size, float scale) {
        const float centre = (at + 1.0f) * static_cast<float>(side >> 1);
        return saturate(std::floor(centre - static_cast<float>(size) * scale * 0.5));
    };
    sprite.px = corner(x, target.width, sprite.width, sprite.scaleX);
    sprite.py = corner(y, target.height, sprite.height, sprite.scaleY);
}

std::optional<SpriteRun> clipSprite(const Sprite& sprite, const Layer& target) {
    const int drawnW = saturate(std::trunc(static_cast<float>(sprite.width) * sprite.scaleX));
    const int drawnH = saturate(std::trunc(static_cast<float>(sprite.height) * sprite.scaleY));
    if (drawnW <= 0 || drawnH <= 0) return std::nullopt;
    const int w = target.width, h = target.height;
    if (!(sprite.px < w - 1 && sprite.py < h - 1 && sprite.px > -drawnW && sprite.py > -drawnH)) return std::nullopt;

    SpriteRun run;
    run.stepX = stepOf(sprite.scaleX);
    run.stepY = stepOf(sprite.scaleY);
    // One axis: the run's start and length on the target, the source start.
    const auto clipAxis = [](int at, int drawn, int side, std::uint32_t step, int& dst, int& length) {
        std::uint64_t source = 0;
        dst = at;
        length = drawn;
        if (dst < 0) {
            length += dst;
            source = static_cast<std::uint64_t>(-static_cast<std::int64_t>(dst)) * step;
            dst = 0;
        }
        if (dst + length > side - 1) length = side - dst;
        return source;
    };
    const std::uint64_t srcX = clipAxis(sprite.px, drawnW, w, run.stepX, run.dstX, run.width);
    const std::uint64_t srcY = clipAxis(sprite.py, drawnH, h, run.stepY, run.dstY, run.height);
    run.width = static_cast<int>(std::min<std::int64_t>(run.width, runInside(srcX, run.stepX, sprite.width)));
    run.height = static_cast<int>(std::min<std::int64_t>(run.height, runInside(srcY, run.stepY, sprite.height)));
    if (run.width <= 0 || run.height <= 0) return std::nullopt;
    run.srcX = static_cast<std::uint32_t>(srcX);
    run.srcY = static_cast<std::uint32_t>(srcY);
    return run;
}

void drawSprite(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels, int stride, int rendu) {
    withRendu(rendu, [&](auto r) {
        walkSprite(target, run, stride, [pixels](std::uint32_t& d, std::size_t i) {
            if (const std::uint32_t s = pixels[i]) d = blend::op<decltype(r)::value>(s, d);
        });
    });
}

void drawSpriteAlphaMap(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels,
                        const std::uint8_t* alpha, int stride) {
    walkSprite(target, run, stride, [=](std::uint32_t& d, std::size_t i) { alphaPixel(alpha[i], pixels[i], d); });
}

void drawSpriteOwnAlpha(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels, int stride) {
    walkSprite(target, run, stride, [=](std::uint32_t& d, std::size_t i) {
        const std::uint32_t s = pixels[i];
        alphaPixel(s >> 24, s, d);
    });
}

void drawSpritePalette(Layer32bpp& target, const SpriteRun& run, const std::uint8_t* indices,
                       const std::uint32_t* colours, int stride) {
    walkSprite(target, run, stride, [=](std::uint32_t& d, std::size_t i) {
        if (const std::uint32_t s = colours[indices[i]]) d = s;
    });
}

void drawSpriteAt(Layer32bpp& target, Sprite& sprite, float x, float y, const std::uint32_t* pixels, int stride,
                  int rendu) {
    placeSprite(sprite, target, x, y);
    if (const auto run = clipSprite(sprite, target)) drawSprite(target, *run, pixels, stride, rendu);
}

}  // namespace vz
