#pragma once
// What every warper shares: a source position moved off the target pixel is held inside
// the w x h picture, so the edges stretch instead of reading outside it.
namespace vz {

inline int clampToEdge(int v, int size) { return v < 0 ? 0 : v >= size ? size - 1 : v; }

}  // namespace vz
