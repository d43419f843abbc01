#pragma once
// Texel fetches: the source colour of each filler kind, pixel by pixel along a span.
#include "engine3d/raster/Fillers.hpp"
#include "engine3d/raster/Span.hpp"

namespace vz::raster {

// The fetch of a filler kind for the 32-bit and the 8-bit target (the 8-bit kinds on
// the one, the others on the other give null).
decltype(Span<std::uint32_t>::fetch) fetch32(FillerKind kind);
decltype(Span<std::uint8_t>::fetch) fetch8(FillerKind kind);

// Colour c with each channel scaled by (light + 1) / 256: two multiplies for the three
// channels; the alpha byte comes out 0.
inline std::uint32_t lit(std::uint32_t c, std::uint32_t light) {
    const std::uint32_t k = light + 1;
    return ((((c & 0xFF00FFu) * k) >> 8) & 0xFF00FFu) | ((((c & 0x00FF00u) * k) >> 8) & 0x00FF00u);
}

}  // namespace vz::raster
