#pragma once
// The four-neighbour blur: every inner pixel becomes the mean of the pixels above, left,
// right and below it (not itself), each channel's two low bits dropped first so the four
// masked words add up without carrying into one another. Alpha byte 0.
#include <cstdint>

namespace vz {

// The mean of mid[x]'s four neighbours, up and down being the rows above and below.
inline std::uint32_t fourNeighbourMean(const std::uint32_t* up, const std::uint32_t* mid, const std::uint32_t* down,
                                       int x) {
    constexpr std::uint32_t keep = 0xFCFCFC;
    return ((up[x] & keep) + (mid[x - 1] & keep) + (mid[x + 1] & keep) + (down[x] & keep)) >> 2;
}

// Every inner pixel of dst gets the mean of its neighbours in src; the border rows and
// columns of dst are not written. dst and src are distinct width x height pictures.
void fourNeighbourBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height);

}  // namespace vz
