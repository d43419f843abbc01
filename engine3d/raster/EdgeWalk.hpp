#pragma once
// Scan conversion of a screen polygon in 16.16 fixed point. From the topmost corner two
// edges are walked down: the one through increasing corner indices is the left edge and
// carries the attributes, the other the right edge. x is rounded up on both sides, so
// two polygons sharing an edge never draw the same pixel, and a polygon whose corners
// run clockwise on the screen (y pointing down) yields no row of positive width.
#include "engine3d/raster/ScreenPolygon.hpp"

namespace vz::raster {

// The drawable rectangle: rows 0..height-1, columns 0..width-1.
struct ClipRect {
    int width = 0, height = 0;
};

// Twice the signed area of the polygon: negative when the corners run anticlockwise on
// the screen, the side that is drawn.
double signedArea(const ScreenPolygon& polygon);

// The change of each attribute per pixel to the right, from the polygon's plane (the
// corner triangle of largest area). Zero when the polygon has no area.
void pixelGradients(const ScreenPolygon& polygon, bool lowQuality, float gradients[attributeCount]);

// Hands every row of positive width inside `clip` to `sink`. The set-up arithmetic
// (slopes, presteps) runs in float when lowQuality is set, in double otherwise.
void scanConvert(const ScreenPolygon& polygon, const float gradients[attributeCount], const ClipRect& clip,
                 const RowSink& sink, bool lowQuality);

}  // namespace vz::raster
