#pragma once
// Filled round shapes with exact edges: a pixel belongs to a disc when its centre lies
// strictly inside the circle. Each row is one run (two for a corona) filled with one
// colour through the bulk fill and a rendu, so a shape costs a square root a row.
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

// A circle on a target: centre and radius in target pixels (pixel x covers x to x + 1).
struct Round {
    double x = 0, y = 0, radius = 0;
};

// The run of row y inside `round`, clipped to [0, width): pixels from..to-1; empty when
// from >= to.
struct RowRun {
    int from = 0, to = 0;
};
RowRun rowInside(const Round& round, int y, int width);

void fillDisc(Layer32bpp& target, const Round& disc, std::uint32_t colour, int rendu);
// The pixels inside `outer` and not inside `inner` (a ring when inner's radius is smaller).
void fillCorona(Layer32bpp& target, const Round& outer, const Round& inner, std::uint32_t colour, int rendu);

}  // namespace vz
