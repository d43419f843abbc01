#pragma once
// Three-component vectors and 3 x 3 matrices, written once for any scalar type: the
// transform runs in double, or in float when the show asks for low quality.
#include <cmath>

namespace vz {

template <class R>
struct Vec3T {
    R x = 0, y = 0, z = 0;

    template <class S>
    explicit operator Vec3T<S>() const {
        return {static_cast<S>(x), static_cast<S>(y), static_cast<S>(z)};
    }
    Vec3T operator+(const Vec3T& o) const { return {x + o.x, y + o.y, z + o.z}; }
    Vec3T operator-(const Vec3T& o) const { return {x - o.x, y - o.y, z - o.z}; }
    Vec3T operator*(R k) const { return {x * k, y * k, z * k}; }
};

template <class R>
R dot(const Vec3T<R>& a, const Vec3T<R>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

template <class R>
Vec3T<R> cross(const Vec3T<R>& a, const Vec3T<R>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// The unit vector along v; the zero vector stays zero.
template <class R>
Vec3T<R> normalized(const Vec3T<R>& v) {
    const R length = std::sqrt(dot(v, v));
    return length > 0 ? v * (R(1) / length) : v;
}

// Rows of a matrix that turns a column vector: (M v)_i = row_i . v.
template <class R>
struct Mat3T {
    Vec3T<R> rows[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

    template <class S>
    explicit operator Mat3T<S>() const {
        return {{static_cast<Vec3T<S>>(rows[0]), static_cast<Vec3T<S>>(rows[1]), static_cast<Vec3T<S>>(rows[2])}};
    }
    Vec3T<R> operator*(const Vec3T<R>& v) const { return {dot(rows[0], v), dot(rows[1], v), dot(rows[2], v)}; }
    Mat3T operator*(const Mat3T& o) const {
        Mat3T product;
        for (int i = 0; i < 3; ++i) {
            const Vec3T<R>& r = rows[i];
            product.rows[i] = o.rows[0] * r.x + o.rows[1] * r.y + o.rows[2] * r.z;
        }
        return product;
    }
    // Each column multiplied by the matching component of s: M diag(s).
    Mat3T scaledColumns(const Vec3T<R>& s) const {
        Mat3T scaled;
        for (int i = 0; i < 3; ++i) scaled.rows[i] = {rows[i].x * s.x, rows[i].y * s.y, rows[i].z * s.z};
        return scaled;
    }
};

using Vec3 = Vec3T<float>;
using Mat3 = Mat3T<float>;

// A placement: p -> matrix p + translation.
template <class R>
struct AffineT {
    Mat3T<R> matrix;
    Vec3T<R> translation;

    Vec3T<R> operator*(const Vec3T<R>& p) const { return matrix * p + translation; }
    // This placement applied after `inner`.
    AffineT operator*(const AffineT& inner) const { return {matrix * inner.matrix, *this * inner.translation}; }
};

}  // namespace vz
