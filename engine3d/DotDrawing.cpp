#include "engine3d/DotDrawing.hpp"

#include <cmath>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/sprites/SpriteDrawing.hpp"
#include "engine3d/Transform.hpp"

namespace vz {

double dotRadius(double baseRadius, double scaleRadius, double z) { return baseRadius + scaleRadius * 256.0 / z; }

void drawDots(const RenderContext& context, Layer32bpp& target, const Layer32bpp& sprite, float baseRadius,
              float scaleRadius) {
    // Larger than any target: keeps the scale, and what clipping computes from it, finite.
    constexpr double largestRadius = 65536;
    for (const CameraVertex& vertex : context.cameraSpace) {
        if (vertex.p.z < nearPlane) continue;
        const double radius = dotRadius(baseRadius, scaleRadius, vertex.p.z);
        if (!(radius > 0 && radius < largestRadius)) continue;
        const ProjectedPoint at = project(context.camera, vertex.p);
        if (!std::isfinite(at.px) || !std::isfinite(at.py)) continue;
        Sprite dot{sprite.width, sprite.height};
        dot.scaleX = dot.scaleY = static_cast<float>(2 * radius / sprite.width);
        drawSpriteAt(target, dot, at.px, at.py, sprite.pixels, sprite.width, renduAdd);
    }
}

}  // namespace vz
