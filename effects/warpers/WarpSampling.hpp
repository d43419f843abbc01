#pragma once
// What every warper shares: a source position moved off the target pixel is held inside
// the w x h picture, so the edges stretch instead of reading outside it; and each row is
// made in a small buffer and copied out whole. Writing straight into the target costs
// much more: a target and a picture of the same size lie at the same place within their
// memory pages, so every pixel read near the one just written looks to the processor as
// if it might be that write (the 4 KiB aliasing of loads and stores).
#include <cstdint>
#include <cstring>

#include "effects/procedural/FillInFours.hpp"

namespace vz {

inline int clampToEdge(int v, int size) { return v < 0 ? 0 : v >= size ? size - 1 : v; }

inline void copyWarpedRow(std::uint32_t* dst, const std::uint32_t* row, int w) {
    if (w > 0) std::memcpy(dst, row, static_cast<std::size_t>(w) * sizeof(std::uint32_t));
}

}  // namespace vz
