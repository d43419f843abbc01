#pragma once
// An antialiased circle line about two pixels wide at its foot: a pixel near the circle
// is covered by 1 - |d - r| (d the distance of its centre from the circle's centre),
// reckoned as 1 - |d^2 - r^2| / 2r so a pixel costs a few multiplies and adds, and takes
// the colour at that coverage in 32nds through the blend levels.
//
// Rows carry the parts of the circle nearer the x axis and columns the parts nearer the y
// axis, so every run across the line is a few pixels long. That also gives each run one
// angle round the circle, which is what dashes are cut by: with `dashes` > 0 the circle
// is cut into that many dashes and as many gaps of equal angle, the first dash starting
// on the +x axis, and a run lies in a dash or a gap whole.
#include <cstdint>

#include "core/Layer.hpp"
#include "effects/shapes/Discs.hpp"

namespace vz {

void drawRingOutline(Layer32bpp& target, const Round& circle, std::uint32_t colour, int dashes = 0);

}  // namespace vz
