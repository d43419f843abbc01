// The texture span on 128-bit words: the 16.16 positions of eight pixels advance as two
// words, their texel addresses are made with shifts, masks and an OR, and the texels are
// then loaded one by one.
#include <emmintrin.h>

#include "core/Fixed16.hpp"
#include "effects/warpers/TiledTexture.hpp"

namespace vz {

namespace {

inline __m128i addressesOf(__m128i u, __m128i v, __m128i widthMask, __m128i heightMask, __m128i widthShift) {
    const __m128i row = _mm_sll_epi32(_mm_and_si128(_mm_srli_epi32(v, fixed16::shift), heightMask), widthShift);
    return _mm_or_si128(row, _mm_and_si128(_mm_srli_epi32(u, fixed16::shift), widthMask));
}

// The four positions start, start + step, ... start + 3 step.
inline __m128i fourFrom(std::uint32_t start, std::uint32_t step) {
    return _mm_setr_epi32(static_cast<int>(start), static_cast<int>(start + step), static_cast<int>(start + 2 * step),
                          static_cast<int>(start + 3 * step));
}

}  // namespace

void textureSpanSse2(std::uint32_t* dst, std::size_t n, const TiledTexture& texture, std::uint32_t u, std::uint32_t v,
                     std::uint32_t du, std::uint32_t dv) {
    constexpr std::size_t group = 8;
    const std::size_t whole = n / group * group;
    if (whole != 0) {
        const std::uint32_t* pixels = texture.pixels;
        const __m128i wm = _mm_set1_epi32(static_cast<int>(texture.widthMask));
        const __m128i hm = _mm_set1_epi32(static_cast<int>(texture.heightMask));
        const __m128i shift = _mm_cvtsi32_si128(texture.widthShift);
        const __m128i stepU = _mm_set1_epi32(static_cast<int>(4 * du)),
                      stepV = _mm_set1_epi32(static_cast<int>(4 * dv));
        __m128i us = fourFrom(u, du), vs = fourFrom(v, dv);
        alignas(16) std::uint32_t at[group];
        for (std::size_t i = 0; i < whole; i += group) {
            _mm_store_si128(reinterpret_cast<__m128i*>(at), addressesOf(us, vs, wm, hm, shift));
            us = _mm_add_epi32(us, stepU);
            vs = _mm_add_epi32(vs, stepV);
            _mm_store_si128(reinterpret_cast<__m128i*>(at + 4), addressesOf(us, vs, wm, hm, shift));
            us = _mm_add_epi32(us, stepU);
            vs = _mm_add_epi32(vs, stepV);
            // All eight reads before the writes, so that they overlap.
            std::uint32_t texels[group];
            for (std::size_t k = 0; k < group; ++k) texels[k] = pixels[at[k]];
            for (std::size_t k = 0; k < group; ++k) dst[i + k] = texels[k];
        }
    }
    const auto done = static_cast<std::uint32_t>(whole);
    textureSpanScalar(dst + whole, n - whole, texture, u + done * du, v + done * dv, du, dv);
}

}  // namespace vz
