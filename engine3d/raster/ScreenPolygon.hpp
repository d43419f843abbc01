#pragma once
// A face as the scan converter sees it: corners in pixels with five attributes each.
#include "engine3d/Clipping.hpp"

namespace vz::raster {

constexpr int attributeCount = 5;
constexpr int depthAttribute = 4;  // attribute 5: the corner's depth, greater is nearer
constexpr int maxCorners = clipCapacity;

struct ScreenVertex {
    float x = 0, y = 0;
    int row = 0;  // y rounded up: the first row this corner can start
    float a[attributeCount] = {};
};

struct ScreenPolygon {
    int count = 0;
    ScreenVertex v[maxCorners];
};

// One row of a polygon handed to a span: its first pixel, its width and the attributes
// at that pixel.
struct SpanRow {
    int x = 0, y = 0, width = 0;
    float a[attributeCount] = {};
};

// Where the rows go: a span and the loop that draws it, chosen once per face.
struct RowSink {
    const void* span = nullptr;
    void (*draw)(const void* span, const SpanRow& row) = nullptr;
};

}  // namespace vz::raster
