#pragma once
// Turning numbers from outside (script literals, key files, track values sampled every
// frame) into sizes, indices, positions and counts. A float that is not finite or lies
// beyond what its use allows must never reach a conversion to an integer: that is
// undefined behaviour, and in practice a crash or a read far outside a layer. Every
// such conversion goes through here.
#include <cmath>
#include <cstdint>

namespace vz {

// v cut toward zero and held inside [low, high]; NaN reads `low`. For values sampled
// every frame, where the show goes on with the nearest allowed value.
inline int clampToInt(double v, int low, int high) {
    if (!(v >= low)) return low;  // below, or NaN
    if (v >= high) return high;
    return static_cast<int>(v);
}

// The same for 64-bit positions and sizes.
inline std::int64_t clampToInt64(double v, std::int64_t low, std::int64_t high) {
    if (!(v >= static_cast<double>(low))) return low;
    if (v >= static_cast<double>(high)) return high;
    return static_cast<std::int64_t>(v);
}

// The largest time, in seconds, that a script may set the show's clock to or start its
// music at (about 28 hours). Beyond it a float clock advances in steps a frame can see,
// and a run with --until would not end in any time a person waits.
constexpr double maxClockSeconds = 100000.0;

// True when v is finite and low <= v <= high (the test of a value read once, which is
// refused with an error rather than clamped).
inline bool finiteWithin(double v, double low, double high) { return std::isfinite(v) && v >= low && v <= high; }

}  // namespace vz
