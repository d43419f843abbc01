#pragma once
// What every warper shares: a source position moved off the target pixel is held inside
// the w x h picture, so the edges stretch instead of reading outside it; and each row is
// made in a small buffer and copied out whole. Writing straight into the target costs
// much more: a target and a picture of the same size lie at the same place within their
// memory pages, so every pixel read near the one just written looks to the processor as
// if it might be that write (the 4 KiB aliasing of loads and stores).
#include <cstdint>
#include <cstring>

namespace vz {

inline int clampToEdge(int v, int size) { return v < 0 ? 0 : v >= size ? size - 1 : v; }

// row[x] = pixel(x) for x from .. to - 1, the reads of four pixels before their writes:
// the processor overlaps reads that no earlier write can hold back.
template <class Pixel>
inline void fillInFours(std::uint32_t* row, int from, int to, Pixel pixel) {
    int x = from;
    for (; x + 4 <= to; x += 4) {
        const std::uint32_t a = pixel(x), b = pixel(x + 1), c = pixel(x + 2), d = pixel(x + 3);
        row[x] = a;
        row[x + 1] = b;
        row[x + 2] = c;
        row[x + 3] = d;
    }
    for (; x < to; ++x) row[x] = pixel(x);
}

inline void copyWarpedRow(std::uint32_t* dst, const std::uint32_t* row, int w) {
    if (w > 0) std::memcpy(dst, row, static_cast<std::size_t>(w) * sizeof(std::uint32_t));
}

}  // namespace vz
