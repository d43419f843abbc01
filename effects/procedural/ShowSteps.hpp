#pragma once
// Simulations that step with the show's time rather than with the frames: a simulation
// advancing `rate` times per second has made floor(t x rate) steps by local time t, so a
// frame shows the same state at any frame rate.
#include <cmath>
#include <cstdint>

#include "core/SafeNumbers.hpp"

namespace vz {

// floor(t x rate), 0 before the start, held below 2^40 for any time.
inline std::int64_t stepsAt(float t, double rate) {
    return clampToInt64(std::floor(static_cast<double>(t) * rate), 0, std::int64_t{1} << 40);
}

}  // namespace vz
