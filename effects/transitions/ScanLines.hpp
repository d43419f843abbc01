#pragma once
// Pictures brought in or bent row by row, each row of the source moved sideways as a
// whole. The source covers the target.
#include "core/Layer.hpp"

namespace vz {

// Interleaved rows revealing the source: as progress runs from 0 to 1 its even rows slide
// in from the left and its odd rows from the right, meeting in place at 1. Row pixels not
// yet reached keep the target's picture.
void interleaveRows(Layer32bpp& target, const Layer32bpp& source, float progress);

// The source slides in from the right, each row lagging behind the one above by a share
// of the transition set by the amplitude a, so the incoming picture's left edge is a
// slanted line. Row y is done at clamp(progress (1 + a) - a y / H, 0, 1) and then shows
// the source shifted right by (1 - done) W pixels; the left part of the row keeps the
// target's picture. a is held in 0-1000 (a negative one would make the first rows finish
// late; not a number counts as 0).
void skewIn(Layer32bpp& target, const Layer32bpp& source, float amplitude, float progress);

// Each row of the source turned sideways (what leaves one end comes back at the other) by
// a (y - H/2) / (H/2) pixels, a shear about the middle row: the top goes left and the
// bottom right for a positive amplitude a, held within +-10^6 (not a number counts as 0).
// The source is not the target.
void shearRows(Layer32bpp& target, const Layer32bpp& source, float amplitude);

}  // namespace vz
