#pragma once
// Sprites standing at points of 3D space: each drawn centred on its projection, scaled by
// nearness (its own size at the models' distance), farthest first.
#include <vector>

#include "core/Layer.hpp"
#include "engine3d/RenderContext.hpp"
#include "engine3d/procedural/ProceduralView.hpp"

namespace vz {

class FlarePoints {
public:
    // A point of the world and its own scale.
    void add(const Vec3T<double>& p, float scale) { points_.push_back({p, scale}); }
    void clear() { points_.clear(); }

    // Sorts the points far to near as the frame's camera sees them, and draws those in
    // front of its near plane.
    void draw(const RenderContext& context, Layer32bpp& target, const Layer32bpp& sprite, int rendu);

private:
    struct Point {
        Vec3T<double> p;
        float scale;
    };
    std::vector<Point> points_;  // keeps its room from frame to frame
};

// One sprite centred on normalised (x, y), scaled by `scale` (held in 0..8).
void drawFlare(Layer32bpp& target, const Layer32bpp& sprite, float x, float y, float scale, int rendu);

}  // namespace vz
