#include "engine3d/procedural/WireLines.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/Fixed16.hpp"
#include "core/SafeNumbers.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

namespace {

struct PixelEnds {
    int x0, y0, x1, y1;
};

// The ends as pixels of the target: held inside it, so every pixel between them is too.
PixelEnds pixelEnds(const LineBatch::Line& line, int width, int height) {
    return {clampToInt(line.x0, 0, width - 1), clampToInt(line.y0, 0, height - 1), clampToInt(line.x1, 0, width - 1),
            clampToInt(line.y1, 0, height - 1)};
}

template <class Op>
void drawOne(Layer32bpp& target, const PixelEnds& e, std::uint32_t colour, Op op) {
    const int dx = e.x1 - e.x0, dy = e.y1 - e.y0;
    const int steps = std::max(std::abs(dx), std::abs(dy));
    if (steps == 0) {
        std::uint32_t& pixel = target.row(e.y0)[e.x0];
        pixel = op(colour, pixel);
        return;
    }
    // Positions in 16.16, starting on the pixel centres' half so that the rounding of
    // the minor axis is symmetric.
    const std::int32_t stepX = fixed16::fromInt(dx) / steps, stepY = fixed16::fromInt(dy) / steps;
    std::int32_t x = fixed16::fromInt(e.x0) + fixed16::one / 2, y = fixed16::fromInt(e.y0) + fixed16::one / 2;
    for (int i = 0; i <= steps; ++i, x += stepX, y += stepY) {
        std::uint32_t& pixel = target.row(fixed16::floorOf(y))[fixed16::floorOf(x)];
        pixel = op(colour, pixel);
    }
}

}  // namespace

void LineBatch::draw(Layer32bpp& target, int rendu) const {
    if (target.width <= 0 || target.height <= 0) return;
    withRendu(rendu, [&](auto r) {
        const auto op = [](std::uint32_t s, std::uint32_t d) { return blend::op<decltype(r)::value>(s, d); };
        for (const Line& line : lines_) drawOne(target, pixelEnds(line, target.width, target.height), line.colour, op);
    });
}

}  // namespace vz
