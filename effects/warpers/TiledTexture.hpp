#pragma once
// A texture that tiles the plane, for the rotozoom and the floor. Its sides are powers of
// two, so a 16.16 position wraps round it with a mask; positions are unsigned and may
// overflow freely, since 2^32 is a whole number of tiles.
#include <cstddef>
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

struct TiledTexture {
    const std::uint32_t* pixels;
    int widthShift;  // log2 of the width
    std::uint32_t widthMask, heightMask;
};

constexpr bool isPowerOfTwo(int v) { return v > 0 && (v & (v - 1)) == 0; }

// The layer as a tiled texture; both sides must be powers of two.
TiledTexture tiledTexture(const Layer32bpp& layer);

// dst[i] = the texel at (u + i du, v + i dv), positions in 16.16 texels. The SSE2 form
// computes the addresses of eight pixels at once and then loads the texels one by one
// (measured faster here than the gather instructions); the scalar form is its reference,
// used when VZ_SCALAR or setForceScalar asks for the bulk kernels' scalar set.
void textureSpan(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                 std::uint32_t du, std::uint32_t dv);
void textureSpanScalar(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                       std::uint32_t du, std::uint32_t dv);
void textureSpanSse2(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                     std::uint32_t du, std::uint32_t dv);

// A 16.16 position or step from a value in texels, wrapped to 32 bits; values far beyond
// any texture (and non-numbers) are held where the wrap is still defined.
std::uint32_t texelFixed(double texels);

}  // namespace vz
