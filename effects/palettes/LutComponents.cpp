// The three look-up-table builders. Each fills its table once, when the script line is
// read; their runs do nothing. Every table entry is written with a zero alpha byte.
#include <cmath>

#include "core/Palette.hpp"
#include "effects/palettes/Lut.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

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

}  // namespace

class ShadingLut : public Component {
public:
    // Column p runs from the dark colour (row 0) to palette colour p (row 128), then on
    // toward the light colour, row 255 being one step short of it.
    ShadingLut(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in).pixels;
        const Palette& palette = in.symbol<Palette>();
        const std::uint32_t dark = in.symbol<Color>().value;
        const std::uint32_t light = in.symbol<Color>().value;
        for (int p = 0; p < 256; ++p) {
            ChannelRamp ramp;
            ramp.startAt(dark);
            ramp.aimAt(palette.colors[p], 0.0078125f);
            for (int row = 0; row < 256; ++row) {
                if (row == 128) ramp.aimAt(light, 0.0078125f);
                lut[row * 256 + p] = ramp.word();
                ramp.advance();
            }
        }
    }
    void run(float) override {}
};

// Entry (a, b), per channel: the low byte of dark colour a x light colour b (the product
// is not scaled back by 255, so two whites give 1).
class ShadingLutPalette : public Component {
public:
    ShadingLutPalette(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in).pixels;
        const Palette& dark = in.symbol<Palette>();
        const Palette& light = in.symbol<Palette>();
        for (int a = 0; a < 256; ++a) {
            for (int b = 0; b < 256; ++b) {
                std::uint32_t entry = 0;
                for (int shift = 0; shift <= 16; shift += 8)
                    entry |= ((dark.colors[a] >> shift & 0xFFu) * (light.colors[b] >> shift & 0xFFu) & 0xFFu) << shift;
                lut[a * 256 + b] = entry;
            }
        }
    }
    void run(float) override {}
};

// Column p runs from Palette1[p] (row 0) toward Palette2[p] by 1/256 of the distance per
// row, row 255 being one step short of it.
class AlphaLut : public Component {
public:
    AlphaLut(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in).pixels;
        const Palette& first = in.symbol<Palette>();
        const Palette& second = in.symbol<Palette>();
        for (int p = 0; p < 256; ++p) {
            ChannelRamp ramp;
            ramp.startAt(first.colors[p]);
            ramp.aimAt(second.colors[p], 0.00390625f);
            for (int row = 0; row < 256; ++row) {
                lut[row * 256 + p] = ramp.word();
                ramp.advance();
            }
        }
    }
    void run(float) override {}
};

VZ_COMPONENT("shadingLut", ShadingLut)
VZ_COMPONENT("shadingLutPalette", ShadingLutPalette)
VZ_COMPONENT("alphaLut", AlphaLut)

}  // namespace vz
