#pragma once
// The bulk routines written once for a SIMD pixel word V (included only by the SSE2 and
// AVX2 files, each with its own V in an unnamed namespace, so nothing compiled for the
// wider instruction set can leak into the other files). V provides: lanes, load, store,
// a broadcast constructor, & | + - ~ >> (see BlendFormulas.hpp), addSat, subSat (bytes,
// unsigned), allZero, noneZero (per 32-bit lane) and lookup (palette by byte indices).
#include <cstring>
#include <type_traits>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {
namespace {

// Applies op(source word, destination word) over a run, four words per iteration; the
// last partial word goes through a small buffer so every pixel sees the same arithmetic.
template <class V, class Op>
inline void mapRun(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, Op op) {
    constexpr std::size_t L = V::lanes;
    std::size_t i = 0;
    for (; i + 4 * L <= n; i += 4 * L) {
        const V d0 = op(V::load(src + i), V::load(dst + i));
        const V d1 = op(V::load(src + i + L), V::load(dst + i + L));
        const V d2 = op(V::load(src + i + 2 * L), V::load(dst + i + 2 * L));
        const V d3 = op(V::load(src + i + 3 * L), V::load(dst + i + 3 * L));
        d0.store(dst + i);
        d1.store(dst + i + L);
        d2.store(dst + i + 2 * L);
        d3.store(dst + i + 3 * L);
    }
    for (; i + L <= n; i += L) op(V::load(src + i), V::load(dst + i)).store(dst + i);
    if (i < n) {
        std::uint32_t s[L] = {};
        std::uint32_t d[L] = {};
        const std::size_t bytes = (n - i) * sizeof(std::uint32_t);
        std::memcpy(s, src + i, bytes);
        std::memcpy(d, dst + i, bytes);
        op(V::load(s), V::load(d)).store(d);
        std::memcpy(dst + i, d, bytes);
    }
}

// The same with a constant source word.
template <class V, class Op>
inline void mapFill(std::uint32_t* dst, V colour, std::size_t n, Op op) {
    constexpr std::size_t L = V::lanes;
    std::size_t i = 0;
    for (; i + 2 * L <= n; i += 2 * L) {
        const V d0 = op(colour, V::load(dst + i));
        const V d1 = op(colour, V::load(dst + i + L));
        d0.store(dst + i);
        d1.store(dst + i + L);
    }
    for (; i + L <= n; i += L) op(colour, V::load(dst + i)).store(dst + i);
    if (i < n) {
        std::uint32_t d[L] = {};
        const std::size_t bytes = (n - i) * sizeof(std::uint32_t);
        std::memcpy(d, dst + i, bytes);
        op(colour, V::load(d)).store(d);
        std::memcpy(dst + i, d, bytes);
    }
}

template <class V>
void simdCopy(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, int rendu) {
    switch (clampRendu(rendu)) {
    case renduOff: return;
    case renduNormal:
        if (n != 0 && dst != src) std::memmove(dst, src, n * sizeof(std::uint32_t));
        return;
    case renduAdd:
    case renduAddNoSat: mapRun<V>(dst, src, n, [](V s, V d) { return addSat(d, s); }); return;
    case renduSub: mapRun<V>(dst, src, n, [](V s, V d) { return subSat(d, s); }); return;
    default:
        withRendu(rendu, [&](auto r) {
            mapRun<V>(dst, src, n, [](V s, V d) { return blend::op<decltype(r)::value>(s, d); });
        });
    }
}

template <class V>
void simdFill(std::uint32_t* dst, std::uint32_t colour, std::size_t n, int rendu) {
    if (clampRendu(rendu) == renduNormal) {
        const V c(colour);
        constexpr std::size_t L = V::lanes;
        std::size_t i = 0;
        for (; i + 2 * L <= n; i += 2 * L) {
            c.store(dst + i);
            c.store(dst + i + L);
        }
        for (; i < n; ++i) dst[i] = colour;
        return;
    }
    withRendu(rendu, [&](auto r) {
        mapFill<V>(dst, V(colour), n, [](V s, V d) { return blend::op<decltype(r)::value>(s, d); });
    });
}

// `L` alpha-map bytes read as one integer, to test them all at once.
template <std::size_t L>
using AlphaBytes = std::conditional_t<L == 8, std::uint64_t, std::uint32_t>;

template <std::size_t L>
inline AlphaBytes<L> loadAlphaBytes(const std::uint8_t* alpha) {
    AlphaBytes<L> bytes;
    std::memcpy(&bytes, alpha, sizeof bytes);
    return bytes;
}

// True when every byte is 32 or more (a plain copy in the alpha-map table).
template <class Bytes>
inline bool allOpaque(Bytes bytes) {
    constexpr Bytes ones = static_cast<Bytes>(~Bytes{0}) / 0xFF;  // 0x0101...
    const Bytes high = (bytes >> 5) & (ones * 0x07);              // each byte: 0 to 7
    return ((high + ones * 0x7F) & (ones * 0x80)) == ones * 0x80;
}

// The alpha-map routines skip groups of transparent pixels, write groups of opaque ones
// wholesale and hand the mixed groups to the scalar routine.
template <class V>
void simdFillAlphaMap(std::uint32_t* dst, std::uint32_t colour, const std::uint8_t* alpha, std::size_t n) {
    constexpr std::size_t L = V::lanes;
    const V c(colour);
    std::size_t i = 0;
    for (; i + L <= n; i += L) {
        const auto bytes = loadAlphaBytes<L>(alpha + i);
        if (bytes == 0) continue;
        if (allOpaque(bytes))
            c.store(dst + i);
        else
            scalarKernels().fillAlphaMap(dst + i, colour, alpha + i, L);
    }
    if (i < n) scalarKernels().fillAlphaMap(dst + i, colour, alpha + i, n - i);
}

template <class V>
void simdCopyAlphaMap(std::uint32_t* dst, const std::uint32_t* src, const std::uint8_t* alpha, std::size_t n) {
    constexpr std::size_t L = V::lanes;
    std::size_t i = 0;
    for (; i + L <= n; i += L) {
        const auto bytes = loadAlphaBytes<L>(alpha + i);
        if (bytes == 0) continue;
        if (allOpaque(bytes))
            V::load(src + i).store(dst + i);
        else
            scalarKernels().copyAlphaMap(dst + i, src + i, alpha + i, L);
    }
    if (i < n) scalarKernels().copyAlphaMap(dst + i, src + i, alpha + i, n - i);
}

template <class V>
void simdCopySourceAlpha(std::uint32_t* dst, const std::uint32_t* src, std::size_t n) {
    constexpr std::size_t L = V::lanes;
    std::size_t i = 0;
    for (; i + L <= n; i += L) {
        const V s = V::load(src + i);
        if (allZero(s & V(0xFF000000u))) continue;
        if (noneZero(s & V(0xE0000000u)))
            s.store(dst + i);
        else
            scalarKernels().copySourceAlpha(dst + i, src + i, L);
    }
    if (i < n) scalarKernels().copySourceAlpha(dst + i, src + i, n - i);
}

template <class V>
void simdCopyPalette(std::uint32_t* dst, const std::uint8_t* indices, const std::uint32_t* palette, std::size_t n) {
    constexpr std::size_t L = V::lanes;
    std::size_t i = 0;
    for (; i + L <= n; i += L) V::lookup(palette, indices + i).store(dst + i);
    for (; i < n; ++i) dst[i] = palette[indices[i]];
}

template <class V>
BulkKernelSet simdKernelSet(const char* name) {
    return BulkKernelSet{
        name,
        simdCopy<V>,
        simdFill<V>,
        simdFillAlphaMap<V>,
        simdCopyAlphaMap<V>,
        simdCopySourceAlpha<V>,
        scalarKernels().addPremultiplied,  // rare (light effects): the scalar one serves
        simdCopyPalette<V>,
    };
}

}  // namespace
}  // namespace vz
