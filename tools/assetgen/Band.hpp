#pragma once
// The size of the "screen" band the band-sized pictures are made for. Every such
// picture is drawn in the 640 x 400 units it was authored in: a pixel of a larger
// band maps back to authored coordinates, so the pictures keep their look at any size.
#include <cmath>

#include "tools/assetgen/Shapes.hpp"

namespace vz::assetgen {

struct Band {
    static constexpr int authoredWidth = 640, authoredHeight = 400;

    int width = authoredWidth;
    int height = authoredHeight;

    double scaleX() const { return double(width) / authoredWidth; }
    double scaleY() const { return double(height) / authoredHeight; }
    // Radii grow with the diagonal rather than one axis: round shapes stay round on a
    // band of another aspect ratio, and a shape reaching the corners still reaches them.
    double scaleRadius() const {
        return std::hypot(double(width), double(height)) / std::hypot(double(authoredWidth), double(authoredHeight));
    }

    // Authored coordinates of a pixel of this band.
    double atX(int x) const { return x / scaleX(); }
    double atY(int y) const { return y / scaleY(); }
    // The authored pixel a pixel of this band falls in, for shapes built on whole pixels.
    int cellX(int x) const { return int(atX(x)); }
    int cellY(int y) const { return int(atY(y)); }

    // Distance from a pixel of this band to the authored point (cx, cy), in authored pixels.
    double distance(int x, int y, double cx, double cy) const {
        return assetgen::distance(x, y, cx * scaleX(), cy * scaleY()) / scaleRadius();
    }
};

}  // namespace vz::assetgen
