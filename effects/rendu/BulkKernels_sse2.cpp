// Bulk routines on 128-bit words (four pixels), the x86-64 baseline.
#include <emmintrin.h>

#include "effects/rendu/SimdKernels.hpp"

namespace vz {
namespace {

struct Sse2Word {
    static constexpr std::size_t lanes = 4;
    __m128i v;

    Sse2Word() = default;
    explicit Sse2Word(__m128i x) : v(x) {}
    Sse2Word(std::uint32_t c) : v(_mm_set1_epi32(static_cast<int>(c))) {}  // broadcast

    static Sse2Word load(const std::uint32_t* p) {
        return Sse2Word(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    }
    void store(std::uint32_t* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
    static Sse2Word lookup(const std::uint32_t* palette, const std::uint8_t* i) {
        return Sse2Word(_mm_setr_epi32(static_cast<int>(palette[i[0]]), static_cast<int>(palette[i[1]]),
                                       static_cast<int>(palette[i[2]]), static_cast<int>(palette[i[3]])));
    }

    friend Sse2Word operator&(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_and_si128(a.v, b.v)); }
    friend Sse2Word operator|(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_or_si128(a.v, b.v)); }
    friend Sse2Word operator+(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_add_epi32(a.v, b.v)); }
    friend Sse2Word operator-(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_sub_epi32(a.v, b.v)); }
    friend Sse2Word operator~(Sse2Word a) { return Sse2Word(_mm_xor_si128(a.v, _mm_set1_epi32(-1))); }
    friend Sse2Word operator>>(Sse2Word a, int n) { return Sse2Word(_mm_srli_epi32(a.v, n)); }
    friend Sse2Word addSat(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_adds_epu8(a.v, b.v)); }
    friend Sse2Word subSat(Sse2Word a, Sse2Word b) { return Sse2Word(_mm_subs_epu8(a.v, b.v)); }
    friend bool allZero(Sse2Word a) { return _mm_movemask_epi8(_mm_cmpeq_epi32(a.v, _mm_setzero_si128())) == 0xFFFF; }
    friend bool noneZero(Sse2Word a) { return _mm_movemask_epi8(_mm_cmpeq_epi32(a.v, _mm_setzero_si128())) == 0; }
};

}  // namespace

const BulkKernelSet& sse2Kernels() {
    static const BulkKernelSet set = simdKernelSet<Sse2Word>("sse2");
    return set;
}

}  // namespace vz
