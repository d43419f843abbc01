#pragma once
// Fog drawn from the depth buffer of the 3D renderers.
#include <cstddef>
#include <cstdint>

namespace vz {

// Pixels whose depth word has none of bits 16-23 set are blended toward the fog colour:
// k = bits 11-15 of the depth, level 32 - k with the fog as source (k = 0 is pure fog).
// The other pixels are left as they are.
void fogFromDepth(std::uint32_t* pixels, const std::uint32_t* depth, std::size_t n, std::uint32_t fog);

}  // namespace vz
