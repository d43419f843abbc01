#pragma once
// Star-shaped areas with exact edges: each pixel's distance and angle from the shape's
// centre are a table made once (entry = distance in 1/16 pixel << 12 | angle in 4096ths
// of a turn), and a frame gives the edge's distance at every angle. A pixel nearer than
// the edge at its angle takes the colour through the rendu (chosen once for the run).
#include <cstddef>
#include <cstdint>

namespace vz {

constexpr int polarAngleBits = 12;
constexpr int polarDistanceScale = 16;  // distance units a pixel

// dst[i] = rendu(colour, dst[i]) where (entries[i] >> 12) < edge[entries[i] & 4095].
void fillPolarMask(std::uint32_t* dst, const std::uint32_t* entries, std::size_t n, const std::uint32_t* edge,
                   std::uint32_t colour, int rendu);

}  // namespace vz
