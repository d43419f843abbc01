#pragma once
// Colour look-up tables: 256 x 256 colour words held in a 32-bit layer, entry
// light x 256 + colour index (the row runs from dark to light, the column is a palette
// index). The layer may be larger; only its first 65536 pixels are used. Building them,
// and reading pictures through them.
#include <cstddef>
#include <cstdint>

#include "core/Palette.hpp"

namespace vz {

constexpr int lutEntries = 256 * 256;

// The colour of palette index `colour` under light level `light`, both 0-255.
inline std::uint32_t litColour(const std::uint32_t* lut, std::uint32_t light, std::uint32_t colour) {
    return lut[light << 8 | colour];
}

// dst[i] = the colour of colour[i] under light[i].
void lightThroughLut(std::uint32_t* dst, const std::uint8_t* colour, const std::uint8_t* light,
                     const std::uint32_t* lut, std::size_t n);

// The builders fill all lutEntries entries, each with a zero alpha byte.
//
// Column p runs from the dark colour (row 0) to palette colour p (row 128), then on
// toward the light colour, row 255 being one step short of it.
void buildShadingLut(std::uint32_t* lut, const Palette& palette, std::uint32_t dark, std::uint32_t light);
// Entry (a, b), per channel: the low byte of dark colour a x light colour b (the product
// is not scaled back by 255, so two whites give 1).
void buildShadingLutPalette(std::uint32_t* lut, const Palette& dark, const Palette& light);
// Column p runs from first[p] (row 0) toward second[p] by 1/256 of the distance per row,
// row 255 being one step short of it.
void buildAlphaLut(std::uint32_t* lut, const Palette& first, const Palette& second);

}  // namespace vz
