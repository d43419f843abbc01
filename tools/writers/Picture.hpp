#pragma once
// The pictures the encoders write: palette indices with a 256-colour palette, or one
// colour per pixel.
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vz::writers {

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
    // The pixels as given (an encoder writes exactly these, even fewer than w x h) and
    // the palette's first entries as 0x00RRGGBB colours, the rest black.
    IndexedPicture(int w, int h, std::vector<uint8_t> indices, const std::vector<uint32_t>& colours = {});
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
    // w x h pixels given as 0x00RRGGBB colours.
    RgbPicture(int w, int h, const std::vector<uint32_t>& colours);
    Rgb& at(int x, int y) { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
    const Rgb& at(int x, int y) const { return pixels[size_t(y) * size_t(width) + size_t(x)]; }
};

}  // namespace vz::writers
