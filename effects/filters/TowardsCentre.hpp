#pragma once
// Coordinate tables of the radial effects: table[i] = c + floor((i - c) * m / 256), the
// coordinate m/256 of the way from the centre c to i. For 0 <= m <= 256 every entry lies
// between i and c, so a centre inside the layer keeps every entry inside it.
namespace vz {

inline void fillTowardsCentre(int* table, int size, int centre, int m) {
    for (int i = 0; i < size; ++i) table[i] = centre + (((i - centre) * m) >> 8);
}

}  // namespace vz
