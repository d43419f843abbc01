#pragma once
// 16.16 fixed point: the integer part in the upper 16 bits, the fraction in the lower 16.
// Sprites step their source in it and the polygon rasterizer walks its edges in it:
// inner loops then only add and shift.
#include <cmath>
#include <cstdint>

namespace vz::fixed16 {

constexpr int shift = 16;
constexpr std::int32_t one = 1 << shift;
constexpr std::int32_t fractionMask = one - 1;

// v x 65536, cut toward zero (callers keep |v| below 32768).
inline std::int32_t fromReal(double v) { return static_cast<std::int32_t>(std::trunc(v * one)); }
// v x 65536, rounded to the nearest (the rasterizer's vertex positions).
inline std::int32_t fromRealRounded(double v) { return static_cast<std::int32_t>(std::lround(v * one)); }
constexpr std::int32_t fromInt(int v) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(v) << shift); }

// The integer part, rounded down (an arithmetic shift).
constexpr int floorOf(std::int32_t f) { return f >> shift; }
// The smallest integer at or above f.
constexpr int ceilOf(std::int32_t f) {
    return static_cast<int>((static_cast<std::int64_t>(f) + fractionMask) >> shift);
}
// The integer part of a non-negative position kept unsigned (source steppers).
constexpr std::uint32_t indexOf(std::uint32_t f) { return f >> shift; }
constexpr double toReal(std::int32_t f) { return static_cast<double>(f) / one; }

// a x b and a / b in 16.16, through 64 bits so the product cannot overflow.
constexpr std::int32_t multiply(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>((static_cast<std::int64_t>(a) * b) >> shift);
}
constexpr std::int32_t divide(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>((static_cast<std::int64_t>(a) << shift) / b);
}

// The step that walks a source `scale` times slower than its target: trunc(65536 / scale).
inline std::uint32_t stepForScale(double scale) { return static_cast<std::uint32_t>(std::trunc(one / scale)); }

}  // namespace vz::fixed16
