#include "engine3d/loaders/AxisAngle.hpp"

#include <cmath>
#include <numbers>

namespace vz {

Quaternion accumulate(const Quaternion& p, const AxisAngle& turn) {
    const double length = std::sqrt(double(turn.axis.x) * turn.axis.x + double(turn.axis.y) * turn.axis.y +
                                    double(turn.axis.z) * turn.axis.z);
    if (!(length > 0)) return p;
    const double half = turn.angle * 0.5, s = std::sin(half) / length;
    const Quaternion q{std::cos(half), turn.axis.x * s, turn.axis.y * s, turn.axis.z * s};
    // q p: p first, then q.
    return {q.w * p.w - q.x * p.x - q.y * p.y - q.z * p.z, q.w * p.x + q.x * p.w + q.y * p.z - q.z * p.y,
            q.w * p.y - q.x * p.z + q.y * p.w + q.z * p.x, q.w * p.z + q.x * p.y - q.y * p.x + q.z * p.w};
}

namespace {

double nearest(double angle, float near) {
    constexpr double turn = 2 * std::numbers::pi;
    return angle + turn * std::round((near - angle) / turn);
}

}  // namespace

Vector3 anglesOf(const Quaternion& q, const Vector3& near) {
    // The rotation matrix (column vectors) in the file's axes.
    const double w = q.w, x = q.x, y = q.y, z = q.z;
    const double f[3][3] = {{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)},
                            {2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)},
                            {2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)}};
    // Swapping the second and third axes swaps those rows and those columns.
    constexpr int swap[3] = {0, 2, 1};
    double m[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) m[r][c] = f[swap[r]][swap[c]];
    // The angles' matrix: row 2 is (-cc sa, cc ca, sc), column 3 is (-cc sb, sc, cc cb).
    double a, b;
    const double c = std::asin(std::fmax(-1.0, std::fmin(1.0, m[1][2])));
    if (std::cos(c) > 1e-9) {
        a = std::atan2(-m[1][0], m[1][1]);
        b = std::atan2(-m[0][2], m[2][2]);
    } else {
        // Gimbal lock: a and b turn about the same axis; b = 0 and row 1 is (ca, sa, 0).
        b = 0;
        a = std::atan2(m[0][1], m[0][0]);
    }
    return {static_cast<float>(nearest(a, near.x)), static_cast<float>(nearest(b, near.y)),
            static_cast<float>(nearest(c, near.z))};
}

}  // namespace vz
