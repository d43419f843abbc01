#pragma once
// Local time of a transition: 0 to 1 over the transition, the timeline entry's speed and
// offset deciding how long that takes in the show.
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vz {

// The share of the transition done at local time t, held in 0..1 (0 for not a number).
inline float transitionProgress(float t) { return std::isnan(t) ? 0.0f : std::clamp(t, 0.0f, 1.0f); }

// trunc(t * 256) as a signed level. 64 bits wide and held within +-2^40, so the
// differences the transitions take from it cannot overflow.
inline std::int64_t transitionLevel(float t) {
    const double level = std::trunc(static_cast<double>(t) * 256.0);
    if (std::isnan(level)) return 0;
    constexpr double bound = 1099511627776.0;
    return static_cast<std::int64_t>(std::clamp(level, -bound, bound));
}

}  // namespace vz
