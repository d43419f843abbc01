#pragma once
// The per-pixel work of the tunnels: every screen pixel reads its entry of an offsets
// table, adds the frame's 16-bit offset and shows the texel at that address of a
// 256 x 256 texture. Travelling and turning are nothing but the offset.
#include <cstddef>
#include <cstdint>

#include "script/Keytrack.hpp"

namespace vz {

// Entries are texel addresses v * 256 + u. A 16-bit add lets a carry out of the column
// byte move on to the next row, so the texture wraps as one 65,536-texel ring.
//
// Tables may come from scripts and from effects that draw into them, so an entry's upper
// 16 bits are not trusted: the address keeps only the 16-bit sum and can never leave the
// texture. A proper table (upper bits zero) reads exactly the same texels.
inline std::uint32_t texelAddress(std::uint32_t entry, std::uint32_t offset) { return (entry + offset) & 0xFFFFu; }

// The offset of time t: a = integer part of speed * t (toward zero), b likewise for the
// rotation, each taken modulo 256 (two's complement AND 255); offset = a * 256 + b.
// Any float, however large or not finite, gives a defined byte.
std::uint32_t tunnelOffset(float speed, float rotation, float t);
// The same from a sampled "speedRotationTrack": x rows per second, y columns per second.
inline std::uint32_t tunnelOffset(const Vector2& speed, float t) { return tunnelOffset(speed.x, speed.y, t); }

// The integer part (floor when `useFloor`, toward zero otherwise) of v, AND 255.
int wrapToByte(double v, bool useFloor);

// dst[i] = texture[address(table[i])]; textures hold at least 65,536 texels. Made for
// 32-bit and 8-bit pixels.
template <class Pixel>
void mapTunnel(Pixel* dst, const std::uint32_t* table, const Pixel* texture, std::size_t n, std::uint32_t offset);
// Lit form: dst[i] = lut[light[i] * 256 + texture[address(table[i])]]; the light stays on
// the screen while the texture scrolls. The LUT holds 65,536 colours.
void mapTunnelLit(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* texture,
                  const std::uint8_t* light, const std::uint32_t* lut, std::size_t n, std::uint32_t offset);
// The same with 16-bit light values: a light above 255 shows the LUT's last entry (65535).
void mapTunnelLit16(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* texture,
                    const std::uint16_t* light, const std::uint32_t* lut, std::size_t n, std::uint32_t offset);

// One colour through a mask texture: where mask[address(table[i])] is not 0, dst[i]
// becomes the rendu operator of `colour` over dst[i]; elsewhere dst[i] stays.
void maskTunnel(std::uint32_t* dst, const std::uint32_t* table, const std::uint8_t* mask, std::size_t n,
                std::uint32_t offset, std::uint32_t colour, int rendu);

}  // namespace vz
