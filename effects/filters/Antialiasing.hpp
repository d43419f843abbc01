#pragma once
// Softening only the hard edges: an inner pixel whose colour differs strongly from the
// mean of its four neighbours becomes the average of itself and that mean; every other
// pixel, the border included, is copied unchanged.
#include <cstdint>

namespace vz {

// "Strongly": the three channel differences add up to more than 96, a grey step of 32
// per channel. dst and src are distinct width x height pictures.
void antialiasEdges(std::uint32_t* dst, const std::uint32_t* src, int width, int height);

}  // namespace vz
