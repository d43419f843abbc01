#include "effects/filters/Pixelize.hpp"

#include <cstddef>

namespace vz {

std::vector<int> blockStarts(int size) {
    std::vector<int> starts(static_cast<std::size_t>(pixelizeBlockSizes) * size);
    for (int b = 0; b < pixelizeBlockSizes; ++b)
        for (int i = 0; i < size; ++i) starts[static_cast<std::size_t>(b) * size + i] = i - i % (b + 1);
    return starts;
}

void pixelize(std::uint32_t* dst, const std::uint32_t* image, const std::uint8_t* pattern, int width, int height,
              const int* startX, const int* startY) {
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* grey = pattern + static_cast<std::ptrdiff_t>(y) * width;
        std::uint32_t* out = dst + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            const std::size_t b = grey[x] >> 5;
            out[x] = image[static_cast<std::ptrdiff_t>(startY[b * height + y]) * width + startX[b * width + x]];
        }
    }
}

}  // namespace vz
