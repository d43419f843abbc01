#pragma once
// Polygon clipping against one plane of the view at a time. A clip vertex is a row of
// values: three coordinates first (camera space before the projection, px, py and depth
// after it), then the seven values the fillers interpolate. A vertex made on a plane
// takes every value interpolated along its edge, and exactly the plane's value in the
// clipped coordinate, so that a polygon clipped to the view never pokes past it.
namespace vz {

// The planes of the view, as bits of CameraVertex::outside.
enum ClipPlane : int {
    clipNear = 1,  // z below the near distance
    clipLeft = 2,
    clipRight = 4,
    clipTop = 8,
    clipBottom = 16,
};

constexpr int clipValueCount = 10;
// A triangle gains at most one corner per plane: five planes, eight corners.
constexpr int clipCapacity = 16;

template <class R>
struct ClipVertex {
    R c[clipValueCount];
};

template <class R>
ClipVertex<R> lerp(const ClipVertex<R>& a, const ClipVertex<R>& b, R t) {
    ClipVertex<R> m;
    for (int i = 0; i < clipValueCount; ++i) m.c[i] = a.c[i] + (b.c[i] - a.c[i]) * t;
    return m;
}

// Keeps the part of the n-gon `in` where sign * (c[index] - value) >= 0 and writes it to
// `out` (room for clipCapacity corners); returns its corner count.
template <class R>
int clipPolygon(const ClipVertex<R>* in, int n, ClipVertex<R>* out, int index, R value, R sign) {
    int m = 0;
    for (int i = 0; i < n && m < clipCapacity - 1; ++i) {
        const ClipVertex<R>& a = in[i];
        const ClipVertex<R>& b = in[i + 1 < n ? i + 1 : 0];
        const R da = sign * (a.c[index] - value), db = sign * (b.c[index] - value);
        if (da >= 0) out[m++] = a;
        if ((da >= 0) != (db >= 0)) {
            out[m] = lerp(a, b, da / (da - db));
            out[m++].c[index] = value;
        }
    }
    return m;
}

}  // namespace vz
