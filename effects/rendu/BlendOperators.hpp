#pragma once
// Blend modes ("rendu"): the per-pixel operators, their 36-entry table and the 256-entry
// alpha-map table. Pixels are 32-bit words: blue in bits 0-7, green 8-15, red 16-23,
// alpha 24-31.
#include <array>
#include <cstdint>
#include <type_traits>

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
// it to pick an inlined operator once per run instead of once per pixel. A plain switch,
// so that the compiler makes one jump table of it.
template <class Fn>
[[gnu::always_inline]] inline decltype(auto) withRendu(int rendu, Fn&& fn) {
#define VZ_RENDU_CASE(R) \
    case R: return fn(std::integral_constant<int, R>{});
    switch (clampRendu(rendu)) {
        VZ_RENDU_CASE(0)
        VZ_RENDU_CASE(1) VZ_RENDU_CASE(2) VZ_RENDU_CASE(3) VZ_RENDU_CASE(4) VZ_RENDU_CASE(5) VZ_RENDU_CASE(6)
            VZ_RENDU_CASE(7) VZ_RENDU_CASE(8) VZ_RENDU_CASE(9) VZ_RENDU_CASE(10) VZ_RENDU_CASE(11) VZ_RENDU_CASE(12)
                VZ_RENDU_CASE(13) VZ_RENDU_CASE(14) VZ_RENDU_CASE(15) VZ_RENDU_CASE(16) VZ_RENDU_CASE(17)
                    VZ_RENDU_CASE(18) VZ_RENDU_CASE(19) VZ_RENDU_CASE(20) VZ_RENDU_CASE(21) VZ_RENDU_CASE(22)
                        VZ_RENDU_CASE(23) VZ_RENDU_CASE(24) VZ_RENDU_CASE(25) VZ_RENDU_CASE(26) VZ_RENDU_CASE(27)
                            VZ_RENDU_CASE(28) VZ_RENDU_CASE(29) VZ_RENDU_CASE(30) VZ_RENDU_CASE(31) VZ_RENDU_CASE(33)
                                VZ_RENDU_CASE(34) VZ_RENDU_CASE(35) default
            : return fn(std::integral_constant<int, renduNormal>{});
    }
#undef VZ_RENDU_CASE
}

}  // namespace vz
