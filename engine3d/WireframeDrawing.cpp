#include "engine3d/WireframeDrawing.hpp"

#include <algorithm>
#include <cmath>

#include "core/Fixed16.hpp"
#include "core/SafeNumbers.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "engine3d/Transform.hpp"

namespace vz {

int wireframeColourIndex(double z) { return clampToInt(std::lround(32768.0 / z), 0, 255); }

namespace {

// A line from (x0, y0) to (x1, y1), both inside the target: one pixel per step along
// the longer axis, the other stepped in 16.16.
template <int R>
void drawLine(Layer32bpp& target, float x0, float y0, float x1, float y1, std::uint32_t colour) {
    const float dx = x1 - x0, dy = y1 - y0;
    const int steps = std::max(1, static_cast<int>(std::ceil(std::max(std::fabs(dx), std::fabs(dy)))));
    std::int32_t x = fixed16::fromRealRounded(x0 + 0.5), y = fixed16::fromRealRounded(y0 + 0.5);
    const std::int32_t stepX = fixed16::fromRealRounded(dx / steps), stepY = fixed16::fromRealRounded(dy / steps);
    const int right = target.width - 1, bottom = target.height - 1;
    for (int i = 0; i <= steps; ++i, x += stepX, y += stepY) {
        // Rounding of the steps may carry the last pixel one past the end.
        const int px = std::clamp(fixed16::floorOf(x), 0, right), py = std::clamp(fixed16::floorOf(y), 0, bottom);
        std::uint32_t& d = target.row(py)[px];
        d = blend::op<R>(colour, d);
    }
}

}  // namespace

void drawWireframe(const RenderContext& context, const Meshe& mesh, Layer32bpp& target, const Palette& palette,
                   int rendu) {
    const Viewport& view = context.viewport;
    withRendu(rendu, [&](auto r) {
        for (int i = 0; i < mesh.edgeCount; ++i) {
            const Edge& edge = mesh.edges[static_cast<std::size_t>(i)];
            const Vec3T<double>& a = context.cameraSpace[static_cast<std::size_t>(mesh.indexOf(edge.from))].p;
            const Vec3T<double>& b = context.cameraSpace[static_cast<std::size_t>(mesh.indexOf(edge.to))].p;
            ProjectedPoint pa, pb;
            if (!projectSegment(context, a, b, pa, pb)) continue;
            // px = 1 lands one past the last column: the line is held on the target.
            auto column = [&](float px) { return std::min(px * view.scaleX + view.centreX, float(target.width - 1)); };
            auto row = [&](float py) { return std::min(py * view.scaleY + view.centreY, float(target.height - 1)); };
            const std::uint32_t colour =
                palette.colors[static_cast<std::size_t>(wireframeColourIndex((a.z + b.z) / 2))];
            drawLine<decltype(r)::value>(target, column(pa.px), row(pa.py), column(pb.px), row(pb.py), colour);
        }
    });
}

}  // namespace vz
