#include "effects/layers/DepthFog.hpp"

#include "effects/rendu/BlendOperators.hpp"

namespace vz {

void fogFromDepth(std::uint32_t* pixels, const std::uint32_t* depth, std::size_t n, std::uint32_t fog) {
    // The level changes from pixel to pixel with the depth, so the operator is looked up
    // per pixel here; levels 1-32 are always inside the table.
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t z = depth[i];
        if (z & 0x00FF0000u) continue;
        const int k = static_cast<int>(z >> 11 & 31u);
        pixels[i] = operatorTable[32 - k](fog, pixels[i]);
    }
}

}  // namespace vz
