#pragma once
// The four-neighbour blur: every inner pixel becomes the mean of the pixels above, left,
// right and below it (not itself), each channel's two low bits dropped first so the four
// masked words add up without carrying into one another. Alpha byte 0. The border rows
// and columns of dst are not written. dst and src are distinct width x height pictures.
#include <cstdint>

namespace vz {

void fourNeighbourBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height);

}  // namespace vz
