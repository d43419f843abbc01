#include "engine3d/raster/EdgeWalk.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/Fixed16.hpp"

namespace vz::raster {

namespace {

// v rounded to the nearest, held in the 32-bit range (a slope of a nearly flat edge may
// leave it; such an edge spans less than one row and is never stepped).
template <class R>
std::int32_t roundToFixed(R v) {
    const R limit = R(2147483520);  // below 2^31 and exact in float
    if (!(v > -limit)) return -2147483520;
    if (v > limit) return 2147483520;
    return static_cast<std::int32_t>(std::llround(v));
}

// One side of the polygon between two corners: x in 16.16 and, on the left edge, the
// attributes, each with its change per row.
template <class R>
struct Edge {
    std::int32_t x = 0, slope = 0;
    R a[attributeCount] = {}, step[attributeCount] = {};

    void start(const ScreenVertex& from, const ScreenVertex& to, bool carriesAttributes) {
        const R y0 = from.y, height = R(to.y) - y0;
        const R x0 = R(roundToFixed(R(from.x) * R(fixed16::one)));
        const R dx = R(to.x) - R(from.x);
        slope = roundToFixed(R(fixed16::one) / height * dx);
        const R prestep = R(from.row) - y0;  // from the corner down to its first row
        x = roundToFixed(prestep * R(slope) + x0);
        if (!carriesAttributes) return;
        for (int i = 0; i < attributeCount; ++i) {
            step[i] = (R(to.a[i]) - R(from.a[i])) / height;
            a[i] = R(from.a[i]) + prestep * step[i];
        }
    }
    void advance(int rows, bool carriesAttributes) {
        x = static_cast<std::int32_t>(x + static_cast<std::int64_t>(slope) * rows);
        if (!carriesAttributes) return;
        for (int i = 0; i < attributeCount; ++i) a[i] += step[i] * R(rows);
    }
};

// Walks one side from corner `at` to the next corner below it, skipping flat edges.
// Returns the rows of the edge started, 0 when the next edge goes up: the side is done.
template <class R>
int nextEdge(const ScreenPolygon& p, int& at, int direction, Edge<R>& edge, bool carriesAttributes) {
    const int n = p.count;
    for (int tries = 0; tries < n; ++tries) {
        const int next = (at + direction + n) % n;
        const int rows = p.v[next].row - p.v[at].row;
        if (rows < 0) return 0;
        const int from = at;
        at = next;
        if (rows > 0) {
            edge.start(p.v[from], p.v[next], carriesAttributes);
            return rows;
        }
    }
    return 0;
}

template <class R>
void walk(const ScreenPolygon& p, const float gradients[attributeCount], const ClipRect& clip, const RowSink& sink) {
    const int n = p.count;
    if (n < 2) return;
    int top = 0;
    bool oneRow = true;
    for (int i = 1; i < n; ++i) {
        if (p.v[i].row < p.v[top].row) top = i;
        oneRow = oneRow && p.v[i].row == p.v[0].row;
    }
    if (oneRow) return;

    Edge<R> left, right;
    int leftAt = top, rightAt = top;
    int leftRows = 0, rightRows = 0;
    int row = p.v[top].row;
    SpanRow span;
    for (;;) {
        if (leftRows == 0 && (leftRows = nextEdge(p, leftAt, +1, left, true)) == 0) return;
        if (rightRows == 0 && (rightRows = nextEdge(p, rightAt, -1, right, false)) == 0) return;
        int run = std::min(leftRows, rightRows);
        leftRows -= run;
        rightRows -= run;
        if (row < 0) {  // rows above the target: stepped over at once
            const int skipped = std::min(run, -row);
            left.advance(skipped, true);
            right.advance(skipped, false);
            row += skipped;
            run -= skipped;
        }
        for (; run > 0; --run, ++row) {
            if (row >= clip.height) return;
            int x0 = fixed16::ceilOf(left.x);
            const int x1 = std::min(fixed16::ceilOf(right.x), clip.width);
            if (x1 - x0 > 0) {
                // From the left edge to the first pixel's column, then past any columns
                // left of the target.
                R across = (R(std::int64_t{x0} << fixed16::shift) - R(left.x)) / R(fixed16::one);
                if (x0 < 0) {
                    across -= R(x0);
                    x0 = 0;
                }
                if (x1 > x0) {
                    span.x = x0;
                    span.y = row;
                    span.width = x1 - x0;
                    for (int i = 0; i < attributeCount; ++i)
                        span.a[i] = static_cast<float>(left.a[i] + across * R(gradients[i]));
                    sink.draw(sink.span, span);
                }
            }
            left.advance(1, true);
            right.advance(1, false);
        }
    }
}

template <class R>
void gradientsOf(const ScreenPolygon& p, float gradients[attributeCount]) {
    std::fill(gradients, gradients + attributeCount, 0.0f);
    // The fan triangle (0, k, k + 1) of largest area fixes the plane best.
    R best = 0;
    int k = 0;
    for (int i = 1; i + 1 < p.count; ++i) {
        const R det = (R(p.v[i].x) - p.v[0].x) * (R(p.v[i + 1].y) - p.v[0].y) -
                      (R(p.v[i + 1].x) - p.v[0].x) * (R(p.v[i].y) - p.v[0].y);
        if (std::abs(det) > std::abs(best)) {
            best = det;
            k = i;
        }
    }
    if (best == 0) return;
    const ScreenVertex &v0 = p.v[0], &v1 = p.v[k], &v2 = p.v[k + 1];
    const R dy1 = R(v1.y) - v0.y, dy2 = R(v2.y) - v0.y;
    for (int i = 0; i < attributeCount; ++i) {
        const R da1 = R(v1.a[i]) - v0.a[i], da2 = R(v2.a[i]) - v0.a[i];
        gradients[i] = static_cast<float>((da1 * dy2 - da2 * dy1) / best);
    }
}

}  // namespace

double signedArea(const ScreenPolygon& p) {
    double twice = 0;
    for (int i = 0; i < p.count; ++i) {
        const ScreenVertex& a = p.v[i];
        const ScreenVertex& b = p.v[i + 1 < p.count ? i + 1 : 0];
        twice += double(a.x) * b.y - double(b.x) * a.y;
    }
    return twice;
}

void pixelGradients(const ScreenPolygon& polygon, bool lowQuality, float gradients[attributeCount]) {
    if (lowQuality)
        gradientsOf<float>(polygon, gradients);
    else
        gradientsOf<double>(polygon, gradients);
}

void scanConvert(const ScreenPolygon& polygon, const float gradients[attributeCount], const ClipRect& clip,
                 const RowSink& sink, bool lowQuality) {
    if (lowQuality)
        walk<float>(polygon, gradients, clip, sink);
    else
        walk<double>(polygon, gradients, clip, sink);
}

}  // namespace vz::raster
