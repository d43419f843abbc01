#include "effects/palettes/Lut.hpp"

#include <cmath>

namespace vz {

namespace {

// Float accumulators for the three channels of one table column, stepped row by row and
// stored truncated. The steps are multiples of 1/256 of whole numbers, so the sums stay
// exact and never leave the range of their two end colours.
struct ChannelRamp {
    float value[3];  // blue, green, red
    float step[3];

    void startAt(std::uint32_t colour) {
        for (int c = 0; c < 3; ++c) value[c] = static_cast<float>(colour >> (8 * c) & 0xFFu);
    }
    // Steps that take the current values toward `colour` by `factor` of the distance per row.
    void aimAt(std::uint32_t colour, float factor) {
        for (int c = 0; c < 3; ++c) step[c] = (static_cast<float>(colour >> (8 * c) & 0xFFu) - value[c]) * factor;
    }
    std::uint32_t word() const {
        std::uint32_t result = 0;
        for (int c = 0; c < 3; ++c) result |= static_cast<std::uint32_t>(std::trunc(value[c])) << (8 * c);
        return result;
    }
    void advance() {
        for (int c = 0; c < 3; ++c) value[c] += step[c];
    }
};

constexpr int noTurn = 256;

// Column p from `start` toward `first` by `factor` of the distance per row; from row
// `turn` on, toward `second` instead.
void rampColumn(std::uint32_t* lut, int p, std::uint32_t start, std::uint32_t first, float factor, int turn = noTurn,
                std::uint32_t second = 0) {
    ChannelRamp ramp;
    ramp.startAt(start);
    ramp.aimAt(first, factor);
    for (int row = 0; row < 256; ++row) {
        if (row == turn) ramp.aimAt(second, factor);
        lut[row * 256 + p] = ramp.word();
        ramp.advance();
    }
}

}  // namespace

void lightThroughLut(std::uint32_t* dst, const std::uint8_t* colour, const std::uint8_t* light,
                     const std::uint32_t* lut, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) dst[i] = litColour(lut, light[i], colour[i]);
}

void buildShadingLut(std::uint32_t* lut, const Palette& palette, std::uint32_t dark, std::uint32_t light) {
    for (int p = 0; p < 256; ++p) rampColumn(lut, p, dark, palette.colors[p], 0.0078125f, 128, light);
}

void buildShadingLutPalette(std::uint32_t* lut, const Palette& dark, const Palette& light) {
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            std::uint32_t entry = 0;
            for (int shift = 0; shift <= 16; shift += 8)
                entry |= ((dark.colors[a] >> shift & 0xFFu) * (light.colors[b] >> shift & 0xFFu) & 0xFFu) << shift;
            lut[a * 256 + b] = entry;
        }
    }
}

void buildAlphaLut(std::uint32_t* lut, const Palette& first, const Palette& second) {
    for (int p = 0; p < 256; ++p) rampColumn(lut, p, first.colors[p], second.colors[p], 0.00390625f);
}

}  // namespace vz
