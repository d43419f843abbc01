// The fire's row on 128-bit words: sixteen pixels a step, the four neighbours added in
// 16-bit lanes (at most 1020), halved twice, packed back to bytes, and the cooling taken
// off with a saturating subtract.
#include <emmintrin.h>

#include "effects/procedural/Fire.hpp"

namespace vz {

namespace {

inline __m128i load(const std::uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

// The mean of four byte vectors, lane by lane: low and high halves summed in 16 bits.
inline __m128i meanOfFour(__m128i a, __m128i b, __m128i c, __m128i d) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i low = _mm_add_epi16(_mm_add_epi16(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero)),
                                      _mm_add_epi16(_mm_unpacklo_epi8(c, zero), _mm_unpacklo_epi8(d, zero)));
    const __m128i high = _mm_add_epi16(_mm_add_epi16(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero)),
                                       _mm_add_epi16(_mm_unpackhi_epi8(c, zero), _mm_unpackhi_epi8(d, zero)));
    return _mm_packus_epi16(_mm_srli_epi16(low, 2), _mm_srli_epi16(high, 2));
}

}  // namespace

void fireRowSse2(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
                 std::size_t w) {
    if (w == 0) return;
    constexpr std::size_t lanes = 16;
    // Inner pixels in groups, so that x - 1 and x + 1 stay in the row.
    std::size_t x = 1;
    for (; x + lanes + 1 <= w; x += lanes) {
        const __m128i mean = meanOfFour(load(below + x - 1), load(below + x), load(below + x + 1), load(below2 + x));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + x), _mm_subs_epu8(mean, load(cooling + x)));
    }
    if (x + 1 < w) detail::fireInner(out, below, below2, cooling, x, w - 1);
    detail::fireEnds(out, below, below2, cooling, w);
}

}  // namespace vz
