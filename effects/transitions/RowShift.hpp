#pragma once
// Rows moved sideways, the building block of the scan-line effects.
#include <cstdint>

namespace vz {

// dst[x] = src[x - shift] where 0 <= x - shift < width; the other pixels of dst are left
// as they are (the row slides in, uncovering nothing of its own).
void copyRowSlid(std::uint32_t* dst, const std::uint32_t* src, int width, int shift);

// dst[x] = src[(x - shift) mod width]: the row turned around, what leaves one end coming
// back at the other. dst and src distinct.
void copyRowTurned(std::uint32_t* dst, const std::uint32_t* src, int width, int shift);

}  // namespace vz
