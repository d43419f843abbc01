#pragma once
// The one program-wide seed counter of the random generators (noise keytracks, random
// layer offsets): every generator created takes the next seed, 3, 4, 5, ... in creation
// order across the whole show, so a script always plays the same "random" values.
#include <cstdint>

namespace vz {

std::uint32_t takeRandomSeed();
// Back to the first seed (3): for tests that check exact random values.
void resetRandomSeeds();

}  // namespace vz
