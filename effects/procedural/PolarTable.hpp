#pragma once
// Tables of polar coordinates, one entry per pixel, built once: the round effects
// (flowers, stars, ripples) read a pixel's distance and angle from their centre without
// a square root or an arc tangent per frame.
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace vz {

// entry(radius, turns) for every pixel of a w x h layer, row by row: the radius in
// pixels from (cx, cy) to the pixel's centre, the angle in turns from 0 to 1, growing
// clockwise on the screen (rows run downward) from the +x direction.
template <class Entry, class Fn>
std::vector<Entry> polarTable(int w, int h, double cx, double cy, Fn entry) {
    std::vector<Entry> table(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    std::size_t i = 0;
    for (int y = 0; y < h; ++y) {
        const double dy = y + 0.5 - cy;
        for (int x = 0; x < w; ++x) {
            const double dx = x + 0.5 - cx;
            double turns = std::atan2(dy, dx) / (2.0 * std::numbers::pi);
            if (turns < 0) turns += 1.0;
            table[i++] = entry(std::hypot(dx, dy), turns);
        }
    }
    return table;
}

}  // namespace vz
