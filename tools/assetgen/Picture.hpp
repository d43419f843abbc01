#pragma once
// Drawing helpers over the writers' picture types.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "tools/writers/Picture.hpp"

namespace vz::assetgen {

using writers::IndexedPicture;
using writers::Palette;
using writers::Rgb;
using writers::RgbPicture;

inline uint8_t clampByte(double v) { return uint8_t(std::clamp(v, 0.0, 255.0)); }

inline uint8_t clampByte(int v) { return uint8_t(std::clamp(v, 0, 255)); }

inline Rgb mix(Rgb a, Rgb b, double f) {
    return {clampByte(a.r + (b.r - a.r) * f), clampByte(a.g + (b.g - a.g) * f), clampByte(a.b + (b.b - a.b) * f)};
}

// Sets every pixel of the picture to f(x, y).
template <class Picture, class F>
void paint(Picture& picture, F f) {
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) picture.at(x, y) = f(x, y);
}

// A palette whose entries first..last run through the given colour stops, evenly spaced.
void fillGradient(Palette& palette, int first, int last, const std::vector<Rgb>& stops);

// Index i is the grey (i, i, i).
Palette greyPalette();

// Expands an indexed picture through its palette.
RgbPicture expand(const IndexedPicture& picture);

}  // namespace vz::assetgen
