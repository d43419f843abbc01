#include "effects/shapes/Discs.hpp"

#include <algorithm>
#include <cmath>

#include "core/SafeNumbers.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

namespace {

// The rows a round can touch, clipped to the target.
RowRun rowsOf(const Round& round, int height) {
    return {clampToInt(std::floor(round.y - round.radius), 0, height),
            clampToInt(std::ceil(round.y + round.radius), 0, height)};
}

void fillRun(Layer32bpp& target, int y, RowRun run, std::uint32_t colour, int rendu) {
    if (run.from < run.to)
        vz::fillRun(target.row(y) + run.from, colour, static_cast<std::size_t>(run.to - run.from), rendu);
}

}  // namespace

RowRun rowInside(const Round& round, int y, int width) {
    const double dy = y + 0.5 - round.y, r2 = round.radius * round.radius;
    if (!(round.radius > 0) || !(dy * dy < r2)) return {};
    const double half = std::sqrt(r2 - dy * dy);
    // Centres strictly inside: x + 0.5 > x0 - half and x + 0.5 < x0 + half.
    return {clampToInt(std::floor(round.x - half - 0.5) + 1, 0, width),
            clampToInt(std::ceil(round.x + half - 0.5), 0, width)};
}

void fillDisc(Layer32bpp& target, const Round& disc, std::uint32_t colour, int rendu) {
    const RowRun rows = rowsOf(disc, target.height);
    for (int y = rows.from; y < rows.to; ++y) fillRun(target, y, rowInside(disc, y, target.width), colour, rendu);
}

void fillCorona(Layer32bpp& target, const Round& outer, const Round& inner, std::uint32_t colour, int rendu) {
    const RowRun rows = rowsOf(outer, target.height);
    for (int y = rows.from; y < rows.to; ++y) {
        const RowRun out = rowInside(outer, y, target.width);
        RowRun hole = rowInside(inner, y, target.width);
        if (hole.from >= hole.to) {
            fillRun(target, y, out, colour, rendu);
            continue;
        }
        fillRun(target, y, {out.from, std::min(out.to, hole.from)}, colour, rendu);
        fillRun(target, y, {std::max(out.from, hole.to), out.to}, colour, rendu);
    }
}

}  // namespace vz
