#pragma once
// Track values that become geometry (positions, angles, amounts): anything not finite
// reads a fallback, so a broken key cannot spread NaN through a mesh or a projection.
#include <cmath>

#include "engine3d/Geometry.hpp"
#include "script/Keytrack.hpp"

namespace vz {

inline float finiteOr(float v, float fallback) { return std::isfinite(v) ? v : fallback; }

inline Vec3 finiteVec3(const Vector3& v) { return {finiteOr(v.x, 0), finiteOr(v.y, 0), finiteOr(v.z, 0)}; }

}  // namespace vz
