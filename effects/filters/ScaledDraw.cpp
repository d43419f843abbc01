#include "effects/filters/ScaledDraw.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"

namespace vz {

namespace {

constexpr double maxScale = 65536.0;

// One axis of a placed, clipped draw: `run` target pixels from `start`, the source
// position beginning at `source` (16.16) and advancing by `step`.
struct Span {
    std::int64_t start = 0, run = 0, source = 0, step = 0;
};

// The corner of a picture of side `size` centred on the normalised coordinate `centre`.
double placedCorner(double centre, int size, double scale, int side) {
    return std::floor((centre + 1.0) * (side >> 1) - size * scale * 0.5);
}

// False when the picture misses the target along this axis. `size` is the picture's
// side, `side` the target's.
bool clipAxis(double corner, int size, double scale, int side, Span& span) {
    const double drawn = std::trunc(size * scale);
    if (drawn <= 0) return false;
    // Strict on the right: a picture whose first column is the target's last is not drawn.
    if (!(corner < side - 1) || !(corner > -drawn)) return false;
    span.step = static_cast<std::int64_t>(65536.0 / scale);
    span.start = static_cast<std::int64_t>(corner);
    span.run = static_cast<std::int64_t>(drawn);
    if (span.start < 0) {
        span.run += span.start;
        span.source = -span.start * span.step;
        span.start = 0;
    }
    if (span.start + span.run > side - 1) span.run = side - span.start;
    return span.run > 0;
}

void drawSpans(Layer32bpp& target, const Layer32bpp& picture, const Span& across, const Span& down, int rendu,
               BlackPixels black) {
    // The last source position of a span is below (drawn - 1) * step <= (size - 1/scale)
    // * 65536, so every index read lies inside the picture.
    const bool skipBlack = black == BlackPixels::transparent;
    withRendu(rendu, [&](auto level) {
        constexpr int R = decltype(level)::value;
        std::int64_t sy = down.source;
        for (std::int64_t j = 0; j < down.run; ++j, sy += down.step) {
            const std::uint32_t* src = picture.row(static_cast<int>(sy >> 16));
            std::uint32_t* dst = target.row(static_cast<int>(down.start + j)) + across.start;
            std::int64_t sx = across.source;
            for (std::int64_t i = 0; i < across.run; ++i, sx += across.step) {
                const std::uint32_t s = src[sx >> 16];
                if (skipBlack && s == 0) continue;
                dst[i] = blend::op<R>(s, dst[i]);
            }
        }
    });
}

}  // namespace

void drawScaled(Layer32bpp& target, const Layer32bpp& picture, float x, float y, float scaleX, float scaleY,
                int rendu, BlackPixels black) {
    if (!(scaleX > 0.0f) || !(scaleY > 0.0f) || !std::isfinite(x) || !std::isfinite(y)) return;
    const double sx = std::min<double>(scaleX, maxScale);
    const double sy = std::min<double>(scaleY, maxScale);
    Span across, down;
    if (!clipAxis(placedCorner(x, picture.width, sx, target.width), picture.width, sx, target.width, across)) return;
    if (!clipAxis(placedCorner(y, picture.height, sy, target.height), picture.height, sy, target.height, down)) return;
    drawSpans(target, picture, across, down, rendu, black);
}

void drawAt(Layer32bpp& target, const Layer32bpp& picture, int cornerX, int cornerY, int rendu, BlackPixels black) {
    Span across, down;
    if (!clipAxis(cornerX, picture.width, 1.0, target.width, across)) return;
    if (!clipAxis(cornerY, picture.height, 1.0, target.height, down)) return;
    drawSpans(target, picture, across, down, rendu, black);
}

}  // namespace vz
