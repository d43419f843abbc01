#pragma once
// Periodic and radial helpers shared by the drawing code.
#include <cmath>

namespace vz::assetgen {

constexpr double pi = 3.14159265358979323846;

// sin of a position on a 256-step circle: tiles seamlessly over a 256-wide texture.
inline double wave256(double position, int cyclesPer256) {
    return std::sin(position * cyclesPer256 * 2.0 * pi / 256.0);
}

inline double distance(double x, double y, double cx, double cy) {
    return std::sqrt((x - cx) * (x - cx) + (y - cy) * (y - cy));
}

inline double smoothstep(double edge0, double edge1, double x) {
    const double t = std::fmin(1.0, std::fmax(0.0, (x - edge0) / (edge1 - edge0)));
    return t * t * (3.0 - 2.0 * t);
}

}  // namespace vz::assetgen
