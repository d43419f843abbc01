#include "effects/rendu/LayerRect.hpp"

#include <algorithm>

#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

bool positionInside(const Layer& layer) {
    return layer.posX >= 0 && layer.posX < layer.width && layer.posY >= 0 && layer.posY < layer.height;
}

// The destination rectangle of a copy: cut to the layer's edges, empty when the
// layer's position lies outside it.
struct Span {
    int w = 0;
    int h = 0;
};

Span copySpan(const Layer& layer, int w, int h) {
    if (!positionInside(layer) || w <= 0 || h <= 0) return {};
    return {std::min(w, layer.width - layer.posX), std::min(h, layer.height - layer.posY)};
}

// Calls copyRow(dstOffset, srcOffset, count) for the part of every row whose source
// lies inside the source's memory of sourcePixels pixels.
template <class CopyRow>
void forEachCopyRow(const Layer& layer, std::int64_t sourcePixels, std::int64_t sourceStride, int sx, int sy, int w,
                    int h, CopyRow copyRow) {
    const Span span = copySpan(layer, w, h);
    for (int row = 0; row < span.h; ++row) {
        const std::int64_t dst = static_cast<std::int64_t>(layer.posY + row) * layer.width + layer.posX;
        // In 64 bits: a window far from the source must not wrap around into it.
        const std::int64_t src = (static_cast<std::int64_t>(sy) + row) * sourceStride + sx;
        const std::int64_t first = std::max<std::int64_t>(0, -src);
        const std::int64_t last = std::min<std::int64_t>(span.w, sourcePixels - src);
        if (first < last) copyRow(dst + first, src + first, static_cast<std::size_t>(last - first));
    }
}

}  // namespace

void fillRect(Layer32bpp& layer, int w, int h, std::uint32_t colour, int rendu) {
    if (!positionInside(layer)) return;
    const int x = layer.posX;
    const int y = layer.posY;
    if (x + static_cast<std::int64_t>(w) >= layer.width) w = layer.width - x - 1;
    if (y + static_cast<std::int64_t>(h) >= layer.height) h = layer.height - y - 1;
    if (w <= 0) return;
    for (int row = 0; row < h; ++row) fillRun(layer.row(y + row) + x, colour, static_cast<std::size_t>(w), rendu);
}

void copyRect(Layer32bpp& layer, const Layer32bpp& source, int sx, int sy, int w, int h, int rendu) {
    forEachCopyRow(layer, source.pixelCount(), source.width, sx, sy, w, h,
                   [&](std::int64_t dst, std::int64_t src, std::size_t n) {
                       copyRunInOrder(layer.pixels + dst, source.pixels + src, n, rendu);
                   });
}

void copyRect8(Layer8bpp& layer, const Layer8bpp& source, int sx, int sy, int w, int h) {
    forEachCopyRow(layer, source.pixelCount(), source.width, sx, sy, w, h,
                   [&](std::int64_t dst, std::int64_t src, std::size_t n) {
                       copyRun8(layer.pixels + dst, source.pixels + src, n);
                   });
}

}  // namespace vz
