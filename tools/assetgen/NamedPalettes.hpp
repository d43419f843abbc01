#pragma once
// Palettes used by more than one file of the demo.
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

Palette tunnelPlasmaPalette();  // cyclic blue, violet, gold
Palette firePalette();          // black, red, orange, yellow, white
Palette icePalette();           // black, deep blue, cyan, white
Palette rainbowPalette();       // a cyclic hue circle: rotating it shifts colours smoothly

}  // namespace vz::assetgen
