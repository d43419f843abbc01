#pragma once
// Pixelisation following a grey-level pattern: the pattern's grey at a pixel sets the
// block size there, 1 + grey / 32 (1 to 8 pixels), and the pixel takes the image's pixel
// at the top-left corner of its block (blocks are aligned on multiples of their size).
// Black areas of the pattern keep the image sharp, white areas show 8x8 blocks.
#include <cstdint>
#include <vector>

namespace vz {

constexpr int pixelizeBlockSizes = 8;

// Entry b * size + i = i - i % (b + 1) for every block size b + 1: the tables replace the
// divisions.
std::vector<int> blockStarts(int size);

// dst, image and pattern are distinct width x height pictures; startX and startY the
// block starts of the width and of the height.
void pixelize(std::uint32_t* dst, const std::uint32_t* image, const std::uint8_t* pattern, int width, int height,
              const int* startX, const int* startY);

}  // namespace vz
