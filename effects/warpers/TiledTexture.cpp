#include "effects/warpers/TiledTexture.hpp"

#include <bit>

#include "core/Fixed16.hpp"
#include "core/SafeNumbers.hpp"
#include "effects/procedural/ScalarChoice.hpp"

namespace vz {

TiledTexture tiledTexture(const Layer32bpp& layer) {
    return {layer.pixels, std::countr_zero(static_cast<unsigned>(layer.width)),
            static_cast<std::uint32_t>(layer.width - 1), static_cast<std::uint32_t>(layer.height - 1)};
}

void textureSpanScalar(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                       std::uint32_t du, std::uint32_t dv) {
    const std::uint32_t* pixels = texture.pixels;
    const int shift = texture.widthShift;
    const std::uint32_t wm = texture.widthMask, hm = texture.heightMask;
    for (std::size_t i = 0; i < n; ++i, u += du, v += dv)
        dst[i] = pixels[((v >> fixed16::shift) & hm) << shift | ((u >> fixed16::shift) & wm)];
}

void textureSpan(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                 std::uint32_t du, std::uint32_t dv) {
    if (scalarKernelsChosen())
        textureSpanScalar(dst, n, texture, u, v, du, dv);
    else
        textureSpanSse2(dst, n, texture, u, v, du, dv);
}

std::uint32_t texelFixed(double texels) {
    constexpr std::int64_t limit = std::int64_t{1} << 50;
    return static_cast<std::uint32_t>(clampToInt64(texels * fixed16::one, -limit, limit));
}

}  // namespace vz
