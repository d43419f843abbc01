#include "effects/rendu/ScaleDown.hpp"

#include <algorithm>
#include <cstdint>

namespace vz {

namespace {

// Calls block(out, top, bottom, x) for every target pixel, top and bottom being the two
// source rows of its block and x its column.
template <class Pixel, class Block>
void forEachBlock(Pixel* target, std::int64_t targetPixels, const Pixel* source, int sourceWidth, int sourceHeight,
                  Block block) {
    const int w = sourceWidth / 2;
    if (w == 0) return;
    const int h = static_cast<int>(std::min<std::int64_t>(sourceHeight / 2, targetPixels / w));
    for (int y = 0; y < h; ++y) {
        Pixel* out = target + static_cast<std::int64_t>(y) * w;
        const Pixel* top = source + static_cast<std::int64_t>(2 * y) * sourceWidth;
        const Pixel* bottom = top + sourceWidth;
        for (int x = 0; x < w; ++x) out[x] = block(top, bottom, 2 * x);
    }
}

}  // namespace

void scaleDown(Layer32bpp& target, const Layer32bpp& source) {
    forEachBlock(target.pixels, target.pixelCount(), source.pixels, source.width, source.height,
                 [](const std::uint32_t* top, const std::uint32_t* bottom, int x) {
                     constexpr std::uint32_t keep = 0xFCFCFC;
                     // Each masked channel is a multiple of 4, so the sum's overflow into
                     // the channel above comes back down with the shift.
                     return ((top[x] & keep) + (top[x + 1] & keep) + (bottom[x] & keep) + (bottom[x + 1] & keep)) >> 2;
                 });
}

void scaleDown(Layer8bpp& target, const Layer8bpp& source) {
    forEachBlock(target.pixels, target.pixelCount(), source.pixels, source.width, source.height,
                 [](const std::uint8_t* top, const std::uint8_t* bottom, int x) {
                     return static_cast<std::uint8_t>((top[x] + top[x + 1] + bottom[x] + bottom[x + 1]) >> 2);
                 });
}

}  // namespace vz
