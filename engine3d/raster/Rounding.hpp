#pragma once
// The one rounding of the rasterizer's set-up: to the nearest, halves away from zero,
// held in the signed 32-bit range (NaN gives 0). Inline, with no call into the maths
// library: it runs for every edge and every span.
#include <cstdint>

namespace vz::raster {

inline std::int32_t roundHeld(double v) {
    if (!(v > -2147483648.0)) return v < 0 ? INT32_MIN : 0;
    if (v >= 2147483647.0) return INT32_MAX;
    return static_cast<std::int32_t>(static_cast<std::int64_t>(v + (v < 0 ? -0.5 : 0.5)));
}

}  // namespace vz::raster
