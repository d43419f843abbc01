#pragma once
// The noise of the noisy effects: a xorshift generator started from a seed of the
// program-wide seed counter, so a script plays the same noise on every run of the demo.
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vz {

class NoiseGenerator {
public:
    explicit NoiseGenerator(std::uint32_t seed) : state_(seed ? seed : 1u) {}
    std::uint32_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    std::uint8_t nextByte() { return static_cast<std::uint8_t>(next() >> 24); }

private:
    std::uint32_t state_;
};

// A table of noise bytes; 65,536 entries let a pixel index pick one with a mask.
constexpr std::size_t noiseTableSize = 65536;
constexpr std::size_t noiseTableMask = noiseTableSize - 1;
std::vector<std::uint8_t> makeNoiseTable(NoiseGenerator& generator);

}  // namespace vz
