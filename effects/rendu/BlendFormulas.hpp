#pragma once
// The arithmetic of every blend operator, written once for any "pixel word" type W:
// a plain std::uint32_t for one pixel, or a SIMD wrapper holding several pixels in
// 32-bit lanes. W needs & | ^ + - ~, a right shift by a constant, and construction from
// a 32-bit constant (broadcast to every lane). Every formula works on the whole word
// with masked shifts, so the colour channels never carry into one another (except in
// "addnosat", which is meant to).
#include <cstdint>

namespace vz::blend {

// Channel shifted right by N: the bits that would cross into the channel below are
// masked off first, so each term is floor(channel / 2^N) with a zero alpha byte.
template <int N, class W>
inline W shr(W x) {
    constexpr std::uint32_t keep = ((0xFFu << N) & 0xFFu) * 0x010101u;
    return (x & W(keep)) >> N;
}

// part<K>(x): the approximation of x * K / 32 that the levels are built from.
template <int K, class W>
inline W part(W x) {
    if constexpr (K == 1)
        return shr<5>(x);
    else if constexpr (K == 2)
        return shr<4>(x);
    else if constexpr (K == 3)
        return shr<4>(x) + shr<5>(x);
    else if constexpr (K == 4)
        return shr<3>(x);
    else if constexpr (K == 5)
        return shr<3>(x) + shr<5>(x);
    else if constexpr (K == 6)
        return shr<3>(x) + shr<4>(x);
    else if constexpr (K == 7)
        return shr<2>(x) - shr<5>(x);
    else if constexpr (K == 9)
        return shr<2>(x) + shr<5>(x);
    else if constexpr (K == 10)
        return shr<2>(x) + shr<4>(x);
    else if constexpr (K == 11)
        return shr<1>(x) - shr<3>(x) - shr<5>(x);
    else if constexpr (K == 12)
        return shr<2>(x) + shr<3>(x);
    // 13 and 19 are a mirrored pair: 255 gives 106 and 148, and both stay between
    // their neighbouring levels for every channel value.
    else if constexpr (K == 13)
        return shr<1>(x) - shr<3>(x) + shr<5>(x) + shr<6>(x);
    else if constexpr (K == 14)
        return shr<1>(x) - shr<4>(x);
    else if constexpr (K == 15)
        return shr<1>(x) - shr<5>(x);
    else if constexpr (K == 16)
        return shr<1>(x);
    else if constexpr (K == 17)
        return shr<1>(x) + shr<5>(x);
    else if constexpr (K == 18)
        return shr<1>(x) + shr<4>(x);
    else if constexpr (K == 19)
        return shr<1>(x) + shr<3>(x) - shr<5>(x) - shr<6>(x);
    else if constexpr (K == 20)
        return shr<1>(x) + shr<3>(x);
    // 22 and 26 pair with 10 and 6 (255 gives 176 / 78 and 208 / 46).
    else if constexpr (K == 22)
        return (x & W(0xFFFFFFu)) - shr<1>(x) + shr<2>(x) - shr<4>(x);
    else if constexpr (K == 26)
        return (x & W(0xFFFFFFu)) - shr<2>(x) + shr<3>(x) - shr<4>(x);
    else
        static_assert(K < 0, "no approximation for this weight");
}

// Per-pixel saturating add of the lossy kind: the low bit of every byte is dropped so a
// carry lands there; each overflowed byte is then forced to 0xFE (so 254, not 255), the
// byte above it keeps the carry in its low bit, and an alpha overflow is lost.
template <class W>
inline W addLossy(W s, W d) {
    const W sum = (s & W(0xFEFEFEFEu)) + (d & W(0xFEFEFEFEu));
    const W carry = sum & W(0x01010101u);
    return sum | (carry - (carry >> 7));
}

// Per-pixel saturating subtract d - s of the same kind: a borrow leaves a low bit set in
// the byte above, which marks the bytes to clear.
template <class W>
inline W subLossy(W s, W d) {
    const W diff = (d & W(0xFEFEFEFEu)) - (s & W(0xFEFEFEFEu));
    const W borrow = diff & W(0x01010101u);
    return diff & ~(borrow - (borrow >> 7));
}

// The operator of rendu R (0-35) applied to source s over destination d.
template <int R, class W>
inline W op(W s, W d) {
    static_assert(R >= 0 && R <= 35, "rendu out of range");
    if constexpr (R == 0) {
        return d;
    } else if constexpr (R == 8) {
        const W dm = d & W(0xFCFCFCu);
        return ((s & W(0xFCFCFCu)) + dm + dm + dm) >> 2;
    } else if constexpr (R == 24) {
        const W sm = s & W(0xFCFCFCu);
        return (sm + sm + sm + (d & W(0xFCFCFCu))) >> 2;
    } else if constexpr (R < 12) {
        return d - part<R>(d) + part<R>(s);  // keeps the destination's alpha byte
    } else if constexpr (R <= 20 || R == 22 || R == 26) {
        return part<R>(s) + part<32 - R>(d);  // alpha byte 0
    } else if constexpr (R < 32) {
        return s - part<32 - R>(s) + part<32 - R>(d);  // keeps the source's alpha byte
    } else if constexpr (R == 32) {
        return s;
    } else if constexpr (R == 33) {
        return addLossy(s, d);
    } else if constexpr (R == 34) {
        return subLossy(s, d);
    } else {
        return s + d;  // 35: channels wrap and carry into the one above
    }
}

}  // namespace vz::blend
