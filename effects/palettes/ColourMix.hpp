#pragma once
// Moving the colour channels of one pixel word toward another by a factor, in floating
// point, the way the fades and palette blends compute them.
#include <cmath>
#include <cstdint>

namespace vz {

// The low byte of a whole-number value. A factor outside 0..1 takes a channel past
// 0-255; the result then wraps as an 8-bit store keeps it (300 -> 44, -1 -> 255) rather
// than spilling into the neighbouring channel. Values too far out for a 64-bit integer
// (and NaN) give 0.
inline std::uint32_t wrapToByte(float whole) {
    if (!(std::fabs(whole) < 9.0e18f)) return 0;
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(whole)) & 0xFFu;
}

// Blue, green and red of `from` + (`to` - `from`) x factor, each made whole by `toWhole`
// (std::round or std::trunc) and wrapped to a byte; the alpha byte of the result is 0.
template <class ToWhole>
std::uint32_t mixColour(std::uint32_t from, std::uint32_t to, float factor, ToWhole toWhole) {
    std::uint32_t result = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const float a = static_cast<float>(from >> shift & 0xFFu);
        const float b = static_cast<float>(to >> shift & 0xFFu);
        result |= wrapToByte(toWhole(a + (b - a) * factor)) << shift;
    }
    return result;
}

inline std::uint32_t mixColourRounded(std::uint32_t from, std::uint32_t to, float factor) {
    return mixColour(from, to, factor, [](float v) { return std::round(v); });
}
inline std::uint32_t mixColourTruncated(std::uint32_t from, std::uint32_t to, float factor) {
    return mixColour(from, to, factor, [](float v) { return std::trunc(v); });
}

}  // namespace vz
