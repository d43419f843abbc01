#pragma once
// The texture of the pebble tunnel: round spots on a 256 x 256 mask, staggered like
// cobbles (every other ring of cells shifted by half a cell).
#include <cstdint>

namespace vz {

// Fills 65,536 bytes: 1 on a pebble (within 11 texels of its 32 x 32 cell's centre), 0
// elsewhere.
void buildPebbleMask(std::uint8_t* mask);

}  // namespace vz
