#pragma once
// Colour look-up tables: 256 x 256 colour words held in a 32-bit layer, entry
// light x 256 + colour index (the row runs from dark to light, the column is a palette
// index). The layer may be larger; only its first 65536 pixels are used.
#include "core/Layer.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

constexpr int lutEntries = 256 * 256;

// The table named by the next parameter: a Layer32bpp of at least lutEntries pixels, so
// that every light and colour pair indexes inside it.
inline Layer32bpp& lutParam(ComponentContext& in) {
    Layer32bpp& lut = in.symbol<Layer32bpp>();
    in.requireFullTable("the lut", lut);
    return lut;
}

}  // namespace vz
