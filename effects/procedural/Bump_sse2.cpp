// The lit relief on 128-bit words: eight pixels' slopes and spot addresses in 16-bit
// lanes (every value lies within a few thousand), the two addresses joined into one 32-bit
// index by a multiply-add, then the spot read pixel by pixel.
#include <emmintrin.h>

#include <algorithm>
#include <cstring>

#include "effects/procedural/Bump.hpp"

static_assert(vz::slopeGain == 4, "the 16-bit lanes multiply the slope by 4 with a shift");

namespace vz {

namespace {

inline __m128i eightBytes(const std::uint8_t* p) {
    return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), _mm_setzero_si128());
}

// clamp(v, -edge, edge) + edge, lane by lane.
inline __m128i spotAddress(__m128i v, __m128i edge) {
    return _mm_add_epi16(_mm_max_epi16(_mm_min_epi16(v, edge), _mm_sub_epi16(_mm_setzero_si128(), edge)), edge);
}

}  // namespace

void bumpRowSse2(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                 int lightX, int dy, const LightSpot& spot) {
    if (w <= 0) return;
    // Beyond `reach` from the light no slope brings a pixel inside the spot: it reads the
    // border, 0.
    const int edge = spot.radius() + 1, reach = edge + slopeGain * 255;
    if (dy < -reach || dy > reach) {
        std::memset(out, 0, static_cast<std::size_t>(w));
        return;
    }
    const int last = w - 1;
    const int lo = std::clamp(lightX - reach, 1, std::max(1, last));
    const int hi = std::clamp(lightX + reach + 1, lo, std::max(lo, last));
    if (lo > 1) std::memset(out + 1, 0, static_cast<std::size_t>(lo - 1));
    if (hi < last) std::memset(out + hi, 0, static_cast<std::size_t>(last - hi));

    const std::uint8_t* values = spot.values();
    const __m128i edges = _mm_set1_epi16(static_cast<short>(edge));
    const __m128i rowStep = _mm_set_epi16(static_cast<short>(spot.side()), 1, static_cast<short>(spot.side()), 1,
                                          static_cast<short>(spot.side()), 1, static_cast<short>(spot.side()), 1);
    const __m128i lanes = _mm_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7);
    const __m128i across = _mm_set1_epi16(static_cast<short>(dy));
    alignas(16) std::int32_t at[8];
    int x = lo;
    // Eight pixels whose right neighbours all lie in the row.
    for (; x + 8 <= hi && x + 9 <= w; x += 8) {
        const __m128i slopeX = _mm_sub_epi16(eightBytes(row + x + 1), eightBytes(row + x - 1));
        const __m128i slopeY = _mm_sub_epi16(eightBytes(down + x), eightBytes(up + x));
        const __m128i fromLight = _mm_add_epi16(_mm_set1_epi16(static_cast<short>(x - lightX)), lanes);
        const __m128i sx = spotAddress(_mm_sub_epi16(fromLight, _mm_slli_epi16(slopeX, 2)), edges);
        const __m128i sy = spotAddress(_mm_sub_epi16(across, _mm_slli_epi16(slopeY, 2)), edges);
        _mm_store_si128(reinterpret_cast<__m128i*>(at), _mm_madd_epi16(_mm_unpacklo_epi16(sx, sy), rowStep));
        _mm_store_si128(reinterpret_cast<__m128i*>(at + 4), _mm_madd_epi16(_mm_unpackhi_epi16(sx, sy), rowStep));
        for (int k = 0; k < 8; ++k) out[x + k] = values[at[k]];
    }
    detail::bumpPixels(out, up, row, down, w, lightX, dy, spot, x, hi);
    detail::bumpPixels(out, up, row, down, w, lightX, dy, spot, 0, 1);
    if (last > 0) detail::bumpPixels(out, up, row, down, w, lightX, dy, spot, last, w);
}

}  // namespace vz
