// The three look-up-table builders. Each fills its table once, when the script line is
// read; their runs do nothing.
#include "core/Palette.hpp"
#include "effects/palettes/Lut.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

// The table named by the next parameter, checked to hold lutEntries pixels or more.
std::uint32_t* lutParam(ComponentContext& in) {
    Layer32bpp& lut = in.symbol<Layer32bpp>();
    in.requireFullTable("the lut", lut);
    return lut.pixels;
}

class ShadingLut : public Component {
public:
    ShadingLut(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in);
        const Palette& palette = in.symbol<Palette>();
        const std::uint32_t dark = in.symbol<Color>().value;
        const std::uint32_t light = in.symbol<Color>().value;
        buildShadingLut(lut, palette, dark, light);
    }
    void run(float) override {}
};

class ShadingLutPalette : public Component {
public:
    ShadingLutPalette(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in);
        const Palette& dark = in.symbol<Palette>();
        const Palette& light = in.symbol<Palette>();
        buildShadingLutPalette(lut, dark, light);
    }
    void run(float) override {}
};

class AlphaLut : public Component {
public:
    AlphaLut(ComponentContext& in) {
        std::uint32_t* lut = lutParam(in);
        const Palette& first = in.symbol<Palette>();
        const Palette& second = in.symbol<Palette>();
        buildAlphaLut(lut, first, second);
    }
    void run(float) override {}
};

}  // namespace

VZ_COMPONENT("shadingLut", ShadingLut)
VZ_COMPONENT("shadingLutPalette", ShadingLutPalette)
VZ_COMPONENT("alphaLut", AlphaLut)

}  // namespace vz
