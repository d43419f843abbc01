#pragma once
// The mesh's visible edges as one-pixel lines. An edge takes the palette entry of its
// nearness: index = 32768 / z, held within 0..255, z being the camera distance of the
// edge's middle. An object at the default distance 256 is drawn in entry 128; twice as
// near, entry 255; twice as far, entry 64. Each pixel goes through the rendu operator.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/Fixed16.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"
#include "engine3d/Transform.hpp"

namespace vz {

// A line from (x0, y0) to (x1, y1), both inside the target: one pixel per step along
// the longer axis, the other stepped in 16.16.
template <int R>
inline void drawLine(Layer32bpp& target, float x0, float y0, float x1, float y1, std::uint32_t colour) {
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

// A segment that projectSegment left, drawn on the target of the viewport; px = 1 lands
// one past the last column, so the ends are held on the target.
template <int R>
inline void drawProjectedLine(Layer32bpp& target, const Viewport& view, const ProjectedPoint& a,
                              const ProjectedPoint& b, std::uint32_t colour) {
    auto column = [&](float px) { return std::min(px * view.scaleX + view.centreX, float(target.width - 1)); };
    auto row = [&](float py) { return std::min(py * view.scaleY + view.centreY, float(target.height - 1)); };
    drawLine<R>(target, column(a.px), row(a.py), column(b.px), row(b.py), colour);
}

// The palette entry of an edge whose middle lies at camera distance z.
int wireframeColourIndex(double z);

// Needs the mesh's vertices in context.cameraSpace (the frame's projection puts them
// there). Lines are clipped to the near plane and the target.
void drawWireframe(const RenderContext& context, const Meshe& mesh, Layer32bpp& target, const Palette& palette,
                   int rendu);

}  // namespace vz
