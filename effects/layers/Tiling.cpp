#include "effects/layers/Tiling.hpp"

#include <algorithm>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

// The first tile that reaches the target: a far-away origin costs nothing.
std::int64_t firstTile(std::int64_t origin, int size) { return origin >= 0 ? origin : origin + -origin / size * size; }

// Calls copy(targetRow, targetX, sourceRow, sourceX, n) for every visible row of every
// tile, in drawing order: rows of tiles from the top, tiles from the left, rows from the
// top of each tile.
template <class CopyPiece>
void forEachTilePiece(const Layer& target, const Layer& source, std::int64_t x0, std::int64_t y0, CopyPiece copy) {
    for (std::int64_t ty = firstTile(y0, source.height); ty < target.height; ty += source.height) {
        const std::int64_t top = std::max<std::int64_t>(ty, 0);
        const std::int64_t bottom = std::min<std::int64_t>(ty + source.height, target.height);
        for (std::int64_t tx = firstTile(x0, source.width); tx < target.width; tx += source.width) {
            const std::int64_t left = std::max<std::int64_t>(tx, 0);
            const int n = static_cast<int>(std::min<std::int64_t>(tx + source.width, target.width) - left);
            for (std::int64_t y = top; y < bottom; ++y)
                copy(static_cast<int>(y), static_cast<int>(left), static_cast<int>(y - ty), static_cast<int>(left - tx),
                     n);
        }
    }
}

}  // namespace

void drawTiles(Layer32bpp& target, const Layer32bpp& source, std::int64_t x0, std::int64_t y0, int rendu) {
    rendu = clampRendu(rendu);
    forEachTilePiece(target, source, x0, y0, [&](int ty, int tx, int sy, int sx, int n) {
        copyRunInOrder(target.row(ty) + tx, source.row(sy) + sx, static_cast<std::size_t>(n), rendu);
    });
}

void drawTiles(Layer32bpp& target, const Layer8bpp& source, const Palette& palette, std::int64_t x0, std::int64_t y0) {
    forEachTilePiece(target, source, x0, y0, [&](int ty, int tx, int sy, int sx, int n) {
        copyRunPalette(target.row(ty) + tx, source.row(sy) + sx, palette.colors.data(), static_cast<std::size_t>(n));
    });
}

}  // namespace vz
