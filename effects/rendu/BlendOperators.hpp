#pragma once
// Blend modes ("rendu"): the per-pixel operators, their 36-entry table and the 256-entry
// alpha-map table. Pixels are 32-bit words: blue in bits 0-7, green 8-15, red 16-23,
// alpha 24-31.
#include <array>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "effects/rendu/BlendFormulas.hpp"

namespace vz {

enum Rendu : int {
    renduOff = 0,        // level 0: destination kept
    renduGlenz25 = 8,    // 1/4 source, 3/4 destination
    renduGlenz50 = 16,   // average
    renduGlenz75 = 24,   // 3/4 source, 1/4 destination
    renduNormal = 32,    // source replaces destination
    renduAdd = 33,       // saturating add (254 per pixel, 255 in bulk copies)
    renduSub = 34,       // destination minus source, saturating at 0
    renduAddNoSat = 35,  // plain 32-bit add per pixel, saturating in bulk copies
    renduCount = 36,
};

// Rendu values come from scripts and keytracks; the table only has 36 entries, so any
// value outside 0-35 is treated as "normal" rather than indexing past it.
constexpr int clampRendu(int rendu) { return rendu >= 0 && rendu < renduCount ? rendu : renduNormal; }

// Alpha maps use 0-32 (32 opaque); every value above 31 is a plain copy.
constexpr int alphaToRendu(std::uint32_t alpha) { return alpha < 32 ? static_cast<int>(alpha) : renduNormal; }

using PixelOperator = std::uint32_t (*)(std::uint32_t s, std::uint32_t d);

// operatorTable[r](s, d): entries 0-31 are the levels, 32-35 normal, add, sub, addnosat.
extern const std::array<PixelOperator, renduCount> operatorTable;
// alphaMapTable[a]: levels 0-31, then "normal" for 32-255.
extern const std::array<PixelOperator, 256> alphaMapTable;

// One pixel through rendu `rendu` (clamped as above).
std::uint32_t blendPixel(int rendu, std::uint32_t s, std::uint32_t d);

// Calls fn(std::integral_constant<int, R>{}) for R = clampRendu(rendu): bulk loops use
// it to pick an inlined operator once per run instead of once per pixel.
template <class Fn>
decltype(auto) withRendu(int rendu, Fn&& fn) {
    const int r = clampRendu(rendu);
    return [&]<int... Rs>(std::integer_sequence<int, Rs...>) -> decltype(auto) {
        using Result = decltype(fn(std::integral_constant<int, 0>{}));
        if constexpr (std::is_void_v<Result>) {
            (void)((r == Rs ? (fn(std::integral_constant<int, Rs>{}), true) : false) || ...);
        } else {
            Result result{};
            (void)((r == Rs ? (result = fn(std::integral_constant<int, Rs>{}), true) : false) || ...);
            return result;
        }
    }(std::make_integer_sequence<int, renduCount>{});
}

}  // namespace vz
