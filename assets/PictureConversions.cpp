#include "assets/PictureConversions.hpp"

namespace vz {

void expandThroughPalette(const std::uint8_t* indices, std::size_t count, const std::array<std::uint32_t, 256>& palette,
                          std::uint32_t* out) {
    for (std::size_t i = 0; i < count; ++i) out[i] = palette[indices[i]];
}

void pixelsFromByteTriples(const std::uint8_t* bytes, std::size_t count, std::uint32_t* out) {
    for (std::size_t i = 0; i < count; ++i, bytes += 3)
        out[i] = static_cast<std::uint32_t>(bytes[2]) << 16 | bytes[1] << 8 | bytes[0];
}

std::vector<std::uint8_t> packRuns(const std::uint8_t* indices, int width, int height) {
    std::vector<std::uint8_t> packed;
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = indices + static_cast<std::size_t>(y) * width;
        for (int x = 0; x < width;) {
            int run = 1;
            while (x + run < width && run < 255 && row[x + run] == row[x]) ++run;
            packed.push_back(static_cast<std::uint8_t>(run));
            packed.push_back(row[x]);
            x += run;
        }
    }
    return packed;
}

}  // namespace vz
