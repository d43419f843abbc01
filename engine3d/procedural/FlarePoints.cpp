#include "engine3d/procedural/FlarePoints.hpp"

#include <algorithm>

#include "effects/sprites/SpriteDrawing.hpp"

namespace vz {

// Sprites beyond eight times their size only cost time.
constexpr float largestFlare = 8;

void drawFlare(Layer32bpp& target, const Layer32bpp& sprite, float x, float y, float scale, int rendu) {
    scale = std::clamp(scale, 0.0f, largestFlare);
    Sprite placed{sprite.width, sprite.height, 0, 0, scale, scale};
    drawSpriteAt(target, placed, x, y, sprite.pixels, sprite.width, rendu);
}

void FlarePoints::draw(const RenderContext& context, Layer32bpp& target, const Layer32bpp& sprite, int rendu) {
    for (Point& point : points_) point.p = seenBy(context.camera, point.p);
    // Points at one depth keep a fixed order (by x, then y), whatever the sort does with ties.
    std::sort(points_.begin(), points_.end(), [](const Point& a, const Point& b) {
        if (a.p.z != b.p.z) return a.p.z > b.p.z;
        return a.p.x != b.p.x ? a.p.x < b.p.x : a.p.y < b.p.y;
    });
    for (const Point& point : points_) {
        if (!(point.p.z >= nearPlane)) continue;
        const ProjectedPoint at = project(context.camera, point.p);
        drawFlare(target, sprite, at.px, at.py, static_cast<float>(point.scale * modelDistance / point.p.z), rendu);
    }
}

}  // namespace vz
