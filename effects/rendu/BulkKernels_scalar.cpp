// The reference versions of the bulk routines: one pixel at a time, operators inlined.
#include <cstring>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

using std::size_t;
using std::uint32_t;
using std::uint8_t;

uint8_t addSaturated(uint8_t a, uint8_t b) {
    const unsigned sum = static_cast<unsigned>(a) + b;
    return static_cast<uint8_t>(sum > 255 ? 255 : sum);
}

uint8_t subSaturated(uint8_t a, uint8_t b) { return static_cast<uint8_t>(a > b ? a - b : 0); }

// Byte-wise saturating arithmetic over all four bytes of every pixel, the last byte first.
template <uint8_t (*ByteOp)(uint8_t, uint8_t)>
void bytewise(uint32_t* dst, const uint32_t* src, size_t n) {
    auto* d = reinterpret_cast<uint8_t*>(dst);
    const auto* s = reinterpret_cast<const uint8_t*>(src);
    for (size_t i = n * 4; i-- > 0;) d[i] = ByteOp(d[i], s[i]);
}

// The operator of the alpha-map entry `alpha`, chosen by a jump inside the loop body
// (the bodies are inlined; no call per pixel).
uint32_t blendByAlpha(uint32_t alpha, uint32_t s, uint32_t d) {
    return withRendu(alphaToRendu(alpha), [&](auto r) { return blend::op<decltype(r)::value>(s, d); });
}

void copy(uint32_t* dst, const uint32_t* src, size_t n, int rendu) {
    switch (clampRendu(rendu)) {
    case renduNormal:
        for (size_t i = 0; i < n; ++i) dst[i] = src[i];
        return;
    case renduAdd:
    case renduAddNoSat: bytewise<addSaturated>(dst, src, n); return;
    case renduSub: bytewise<subSaturated>(dst, src, n); return;
    default:
        withRendu(rendu, [&](auto r) {
            for (size_t i = 0; i < n; ++i) dst[i] = blend::op<decltype(r)::value>(src[i], dst[i]);
        });
    }
}

void fill(uint32_t* dst, uint32_t colour, size_t n, int rendu) {
    withRendu(rendu, [&](auto r) {
        for (size_t i = 0; i < n; ++i) dst[i] = blend::op<decltype(r)::value>(colour, dst[i]);
    });
}

void fillAlphaMap(uint32_t* dst, uint32_t colour, const uint8_t* alpha, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = blendByAlpha(alpha[i], colour, dst[i]);
}

void copyAlphaMap(uint32_t* dst, const uint32_t* src, const uint8_t* alpha, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = blendByAlpha(alpha[i], src[i], dst[i]);
}

void copySourceAlpha(uint32_t* dst, const uint32_t* src, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const uint32_t alpha = src[i] >> 24;
        if (alpha != 0) dst[i] = blendByAlpha(alpha, src[i], dst[i]);
    }
}

void addPremultiplied(uint32_t* dst, const uint32_t* src, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const uint32_t alpha = src[i] >> 24;
        if (alpha != 0) dst[i] = blendByAlpha(alpha, 0, dst[i]) + src[i];
    }
}

void copyPalette(uint32_t* dst, const uint8_t* indices, const uint32_t* palette, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = palette[indices[i]];
}

constexpr BulkKernelSet scalarSet{
    "scalar", copy, fill, fillAlphaMap, copyAlphaMap, copySourceAlpha, addPremultiplied, copyPalette,
};

}  // namespace

const BulkKernelSet& scalarKernels() { return scalarSet; }

}  // namespace vz
