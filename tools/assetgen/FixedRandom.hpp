#pragma once
// A small seeded generator so that every run draws the same noise.
#include <cstdint>

namespace vz::assetgen {

class FixedRandom {
public:
    explicit FixedRandom(uint32_t seed) : state_(seed) {}

    // xorshift32: the state must never be 0.
    uint32_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    int below(int n) { return int(next() % uint32_t(n)); }
    // Uniform in -1..1.
    double signedUnit() { return double(next() >> 8) / double(1 << 23) - 1.0; }

private:
    uint32_t state_;
};

}  // namespace vz::assetgen
