#pragma once
// A random value held for a period, then redrawn: the offsets of the random-offset tiling.
#include <cstdint>

#include "script/RandomSeed.hpp"

namespace vz {

class RandomStep {
public:
    // Values lie in 0 .. amplitude - 1 (amplitude + 1 .. 0 for a negative one), for any
    // amplitude: the product with the seed is taken in 64 bits, where it cannot overflow.
    // The seed is the next one of the program-wide counter, taken in construction order.
    RandomStep(int amplitude, int periodSeconds)
        : amplitude_(static_cast<float>(amplitude)),
          period_(static_cast<float>(periodSeconds)),
          seed_(takeRandomSeed() & 0xFFFFu) {}

    // The value at local time t: unchanged until a period has passed since the last draw.
    // The first draw comes at t >= period - 1.
    std::int64_t at(float t) {
        if (lastChange_ + period_ > t) return value_;
        lastChange_ = t;
        seed_ = (seed_ * 997u) & 0xFFFFu;
        value_ = static_cast<std::int64_t>(amplitude_ * static_cast<float>(seed_)) >> 16;
        return value_;
    }

private:
    std::int64_t value_ = 0;
    float amplitude_;
    float period_;
    float lastChange_ = -1.0f;
    std::uint32_t seed_;
};

}  // namespace vz
