#pragma once
// Bulk pixel routines: runs of n pixels processed in order 0..n-1. Every routine has a
// plain scalar version and, where it pays, SSE2 and AVX2 versions that give the same
// bits; the widest one the processor supports is chosen once, at first use. Setting
// the environment variable VZ_SCALAR=1, or calling setForceScalar(true), selects the
// scalar versions (a reference when chasing a difference).
//
// Runs may be the same memory (dst == src) but must not otherwise overlap.
#include <cstddef>
#include <cstdint>

namespace vz {

// One implementation of every 32-bit bulk routine.
struct BulkKernelSet {
    const char* name;
    // rendu 32: plain copy; 33 and 35: byte-wise add saturating at 255 over all four
    // bytes; 34: byte-wise subtract saturating at 0; others: the per-pixel operator.
    void (*copy)(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, int rendu);
    // rendu 32 stores the colour; any other value applies its per-pixel operator
    // (add, sub and addnosat included) with the colour as source.
    void (*fill)(std::uint32_t* dst, std::uint32_t colour, std::size_t n, int rendu);
    // Pixel i gets the alpha-map operator of alpha[i] (0-31 levels, 32-255 normal).
    void (*fillAlphaMap)(std::uint32_t* dst, std::uint32_t colour, const std::uint8_t* alpha, std::size_t n);
    void (*copyAlphaMap)(std::uint32_t* dst, const std::uint32_t* src, const std::uint8_t* alpha, std::size_t n);
    // The alpha-map operator of each source pixel's own alpha byte; 0 leaves dst as is.
    void (*copySourceAlpha)(std::uint32_t* dst, const std::uint32_t* src, std::size_t n);
    // Source alpha a: 0 leaves dst as is; otherwise dst darkened by level a (a black
    // source through the alpha-map operator), then the source added as a 32-bit word.
    void (*addPremultiplied)(std::uint32_t* dst, const std::uint32_t* src, std::size_t n);
    // dst[i] = palette[indices[i]].
    void (*copyPalette)(std::uint32_t* dst, const std::uint8_t* indices, const std::uint32_t* palette, std::size_t n);
};

const BulkKernelSet& scalarKernels();
const BulkKernelSet& sse2Kernels();
const BulkKernelSet* avx2Kernels();  // null when the processor lacks AVX2
namespace detail {
const BulkKernelSet& avx2KernelsUnchecked();  // call only after checking the processor
}

// The set used by the routines below.
const BulkKernelSet& activeKernels();
void setForceScalar(bool force);

inline void copyRun(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, int rendu) {
    activeKernels().copy(dst, src, n, rendu);
}
inline void fillRun(std::uint32_t* dst, std::uint32_t colour, std::size_t n, int rendu) {
    activeKernels().fill(dst, colour, n, rendu);
}
inline void fillRunAlphaMap(std::uint32_t* dst, std::uint32_t colour, const std::uint8_t* alpha, std::size_t n) {
    activeKernels().fillAlphaMap(dst, colour, alpha, n);
}
inline void copyRunAlphaMap(std::uint32_t* dst, const std::uint32_t* src, const std::uint8_t* alpha, std::size_t n) {
    activeKernels().copyAlphaMap(dst, src, alpha, n);
}
inline void copyRunSourceAlpha(std::uint32_t* dst, const std::uint32_t* src, std::size_t n) {
    activeKernels().copySourceAlpha(dst, src, n);
}
inline void addRunPremultiplied(std::uint32_t* dst, const std::uint32_t* src, std::size_t n) {
    activeKernels().addPremultiplied(dst, src, n);
}
inline void copyRunPalette(std::uint32_t* dst, const std::uint8_t* indices, const std::uint32_t* palette,
                           std::size_t n) {
    activeKernels().copyPalette(dst, indices, palette, n);
}

// A run whose source may overlap its destination (a layer copied onto itself), with the
// result of taking the pixels one after another from 0 to n - 1, each read after the
// ones before it were written. Done as bulk runs of the distance between the two, which
// never overlap: one run when the memories are apart, as for two layers.
void copyRunInOrder(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, int rendu);

// 8-bit runs: the C library's own routines are already as fast as it gets.
void fillRun8(std::uint8_t* dst, std::uint8_t value, std::size_t n);
void copyRun8(std::uint8_t* dst, const std::uint8_t* src, std::size_t n);

}  // namespace vz
