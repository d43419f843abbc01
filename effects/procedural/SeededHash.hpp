#pragma once
// "Random" choices made as pure functions of a seed and a few numbers: an effect that
// picks positions and lifetimes this way shows the same picture at a given time whatever
// frames came before, so it looks the same at any frame rate and on every run.
#include <cstdint>

namespace vz {

// A well-mixed 32-bit hash of (seed, a, b).
constexpr std::uint32_t seededHash(std::uint32_t seed, std::uint32_t a, std::uint32_t b) {
    std::uint32_t h = seed * 0x9E3779B1u ^ (a + 0x7F4A7C15u) * 0x85EBCA77u ^ (b + 0x165667B1u) * 0xC2B2AE3Du;
    h ^= h >> 16;
    h *= 0x7FEB352Du;
    h ^= h >> 15;
    h *= 0x846CA68Bu;
    h ^= h >> 16;
    return h;
}

// The same as a float in [0, 1).
constexpr float seededUnit(std::uint32_t seed, std::uint32_t a, std::uint32_t b) {
    return static_cast<float>(seededHash(seed, a, b) >> 8) * (1.0f / 16777216.0f);
}

}  // namespace vz
