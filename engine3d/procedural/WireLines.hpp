#pragma once
// Lines on a 32-bit target: the segments of a frame are gathered first, then drawn in
// one pass whose blend mode is chosen once. Each line steps its minor axis in 16.16
// fixed point, one pixel per step of the major axis, ends included.
#include <cstdint>
#include <vector>

#include "core/Layer.hpp"

namespace vz {

class LineBatch {
public:
    struct Line {
        float x0, y0, x1, y1;  // target pixels
        std::uint32_t colour;
    };

    void clear() { lines_.clear(); }
    // A segment whose ends lie within 0..width and 0..height (what the clipping of the
    // front end leaves); ends on the far edges are drawn on the last column or row.
    void add(float x0, float y0, float x1, float y1, std::uint32_t colour) { lines_.push_back({x0, y0, x1, y1, colour}); }
    int size() const { return static_cast<int>(lines_.size()); }

    // Every line through the rendu operator, black lines included.
    void draw(Layer32bpp& target, int rendu) const;

private:
    std::vector<Line> lines_;  // keeps its room from frame to frame
};

}  // namespace vz
