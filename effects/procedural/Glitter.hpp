#pragma once
// Glitter: twinkles that each light up somewhere, swell and fade, stay dark a while and
// then light up somewhere else. Every twinkle's place and brightness are pure functions of
// the seed, its number and the time (SeededHash.hpp), so the glitter is the same at a
// given time whatever the frame rate, and every run of the show repeats it.
#include <cmath>
#include <cstdint>
#include <numbers>

#include "core/SafeNumbers.hpp"
#include "effects/procedural/SeededHash.hpp"

namespace vz {

struct Twinkle {
    float x = 0, y = 0;    // normalised, -1..1 across the target
    float brightness = 0;  // 0 dark, 1 at the peak
};

// Twinkle i at time t: its cycle lasts 0.8 to 2 s (chosen per twinkle, as is where in it
// the show starts); it shines during the first 40 % of each cycle as sin^2, at a place
// drawn afresh for each cycle.
inline Twinkle twinkleAt(std::uint32_t seed, std::uint32_t i, float t) {
    constexpr double lit = 0.4;
    const double period = 0.8 + 1.2 * seededUnit(seed, i, 0);
    const double cycles = t / period + seededUnit(seed, i, 1);
    const double whole = std::floor(cycles), part = cycles - whole;
    // Far from the start (or at an infinite local time) the count is held at the ends of
    // 64 bits; only its low 32 bits pick the places.
    const auto cycle = static_cast<std::uint32_t>(clampToInt64(whole, INT64_MIN, INT64_MAX));
    Twinkle twinkle;
    twinkle.x = 2.0f * seededUnit(seed, i, 2 * cycle + 2) - 1.0f;
    twinkle.y = 2.0f * seededUnit(seed, i, 2 * cycle + 3) - 1.0f;
    if (part < lit) {
        const double s = std::sin(std::numbers::pi * part / lit);
        twinkle.brightness = static_cast<float>(s * s);
    }
    return twinkle;
}

// The colour at `level` 256ths of its brightness, two channels per multiply.
constexpr std::uint32_t scaledColour(std::uint32_t colour, std::uint32_t level) {
    return (((colour & 0xFF00FFu) * level >> 8) & 0xFF00FFu) | (((colour & 0x00FF00u) * level >> 8) & 0x00FF00u);
}

}  // namespace vz
