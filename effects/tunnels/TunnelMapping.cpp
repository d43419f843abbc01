#include "effects/tunnels/TunnelMapping.hpp"

#include <cmath>

#include "effects/palettes/Lut.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

int wrapToByte(double v, bool useFloor) {
    if (!std::isfinite(v)) return 0;
    v = useFloor ? std::floor(v) : std::trunc(v);
    // fmod is exact, so the remainder keeps the low byte of any integer-valued double.
    return static_cast<int>(std::fmod(v, 256.0)) & 255;
}

std::uint32_t tunnelOffset(float speed, float rotation, float t) {
    // The products are float ones, as the frame's time and speeds are floats.
    const std::uint32_t a = static_cast<std::uint32_t>(wrapToByte(speed * t, false));
    const std::uint32_t b = static_cast<std::uint32_t>(wrapToByte(rotation * t, false));
    return a * 256 + b;
}

// The loops are plain on purpose: one texel load per pixel bounds them, and gathers
// (AVX2 or AVX-512) and hand-built SIMD versions measured no faster than an unrolled
// scalar loop. Unrolling gains about 15 %.
template <class Pixel>
void mapTunnel(Pixel* dst, const std::uint32_t* table, const Pixel* texture, std::size_t n, std::uint32_t offset) {
#pragma GCC unroll 8
    for (std::size_t i = 0; i < n; ++i) dst[i] = texture[texelAddress(table[i], offset)];
}

template void mapTunnel(std::uint32_t*, const std::uint32_t*, const std::uint32_t*, std::size_t, std::uint32_t);
template void mapTunnel(std::uint8_t*, const std::uint32_t*, const std::uint8_t*, std::size_t, std::uint32_t);

void mapTunnelLit(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* texture,
                  const std::uint8_t* light, const std::uint32_t* lut, std::size_t n, std::uint32_t offset) {
#pragma GCC unroll 8
    for (std::size_t i = 0; i < n; ++i) dst[i] = litColour(lut, light[i], texture[texelAddress(table[i], offset)]);
}

void mapTunnelLit16(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* texture,
                    const std::uint16_t* light, const std::uint32_t* lut, std::size_t n, std::uint32_t offset) {
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t l = light[i];
        dst[i] = l > 255 ? lut[lutEntries - 1] : litColour(lut, l, texture[texelAddress(table[i], offset)]);
    }
}

void maskTunnel(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* mask, std::size_t n,
                std::uint32_t offset, std::uint32_t colour, int rendu) {
    withRendu(rendu, [&](auto r) {
        for (std::size_t i = 0; i < n; ++i)
            if (mask[texelAddress(table[i], offset)] != 0) dst[i] = blend::op<r()>(colour, dst[i]);
    });
}

}  // namespace vz
