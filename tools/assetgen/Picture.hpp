#pragma once
// Picture types shared by the encoders and the asset drawing code.
#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace vz::assetgen {

struct Rgb {
    uint8_t r = 0, g = 0, b = 0;
};

using Palette = std::array<Rgb, 256>;

// One palette index per pixel, rows from the top, no padding.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;
    Palette palette{};

    IndexedPicture() = default;
    IndexedPicture(int w, int h) : width(w), height(h), pixels(size_t(w) * size_t(h), 0) {}
    uint8_t& at(int x, int y) { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
    uint8_t at(int x, int y) const { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
};

// One colour per pixel, rows from the top, no padding.
struct RgbPicture {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;

    RgbPicture() = default;
    RgbPicture(int w, int h) : width(w), height(h), pixels(size_t(w) * size_t(h)) {}
    Rgb& at(int x, int y) { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
    const Rgb& at(int x, int y) const { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
};

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
