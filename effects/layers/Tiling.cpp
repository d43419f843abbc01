#include "effects/layers/Tiling.hpp"

#include <algorithm>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

// Calls copy(targetRow, targetX, sourceRow, sourceX, n) for every visible piece of tile
// row: target rows from max(y0, 0) down, and in each row the pieces from max(x0, 0) to
// the right edge. Offsets are reduced to the tile they fall in, so a far-away origin
// costs nothing.
template <class CopyPiece>
void forEachTilePiece(const Layer& target, const Layer& source, int x0, int y0, CopyPiece copy) {
    const std::int64_t firstX = std::max(x0, 0);
    const std::int64_t firstY = std::max(y0, 0);
    const int firstSourceX = static_cast<int>((firstX - x0) % source.width);
    for (std::int64_t y = firstY; y < target.height; ++y) {
        const int sourceY = static_cast<int>((y - y0) % source.height);
        int sourceX = firstSourceX;
        for (std::int64_t x = firstX; x < target.width; sourceX = 0) {
            const int n = static_cast<int>(std::min<std::int64_t>(source.width - sourceX, target.width - x));
            copy(static_cast<int>(y), static_cast<int>(x), sourceY, sourceX, n);
            x += n;
        }
    }
}

}  // namespace

void drawTiles(Layer32bpp& target, const Layer32bpp& source, int x0, int y0, int rendu) {
    rendu = clampRendu(rendu);
    forEachTilePiece(target, source, x0, y0, [&](int ty, int tx, int sy, int sx, int n) {
        copyRun(target.row(ty) + tx, source.row(sy) + sx, static_cast<std::size_t>(n), rendu);
    });
}

void drawTiles(Layer32bpp& target, const Layer8bpp& source, const Palette& palette, int x0, int y0) {
    forEachTilePiece(target, source, x0, y0, [&](int ty, int tx, int sy, int sx, int n) {
        copyRunPalette(target.row(ty) + tx, source.row(sy) + sx, palette.colors.data(), static_cast<std::size_t>(n));
    });
}

}  // namespace vz
