#include "engine3d/WireframeDrawing.hpp"

#include <algorithm>
#include <cmath>

#include "core/SafeNumbers.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "engine3d/Transform.hpp"

namespace vz {

int wireframeColourIndex(double z) { return clampToInt(std::lround(32768.0 / z), 0, 255); }

void drawWireframe(const RenderContext& context, const Meshe& mesh, Layer32bpp& target, const Palette& palette,
                   int rendu) {
    withRendu(rendu, [&](auto r) {
        for (int i = 0; i < mesh.edgeCount; ++i) {
            const Edge& edge = mesh.edges[static_cast<std::size_t>(i)];
            const Vec3T<double>& a = context.cameraSpace[static_cast<std::size_t>(mesh.indexOf(edge.from))].p;
            const Vec3T<double>& b = context.cameraSpace[static_cast<std::size_t>(mesh.indexOf(edge.to))].p;
            ProjectedPoint pa, pb;
            if (!projectSegment(context, a, b, pa, pb)) continue;
            const std::uint32_t colour =
                palette.colors[static_cast<std::size_t>(wireframeColourIndex((a.z + b.z) / 2))];
            drawProjectedLine<decltype(r)::value>(target, context.viewport, pa, pb, colour);
        }
    });
}

}  // namespace vz
