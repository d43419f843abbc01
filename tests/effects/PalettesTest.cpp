#include <numeric>

#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class PalettesTest : public EffectTest {
protected:
    std::uint32_t* lut() { return addLayer32("lut", 256, 256, 0xEEEEEEEE).pixels; }
    // Entry i holds i.
    Palette& ramp(const std::string& name) {
        Palette& palette = addPalette(name);
        std::iota(palette.colors.begin(), palette.colors.end(), 0u);
        return palette;
    }
};

// The look-up tables built from palettes, one after another into the same table.
TEST_F(PalettesTest, LutsFromPalettes) {
    std::uint32_t* table = lut();
    // shadingLut runs from dark through the palette toward light.
    addPalette("pal").colors[1] = 0xAA6400FF;  // red 100, green 0, blue 255
    addColor("dark", 0);
    addColor("light", 0xFFFFFF);
    make("shadingLut lut pal dark light")->run(0);
    EXPECT_EQ(table[0 * 256 + 1], 0u);
    EXPECT_EQ(table[64 * 256 + 1], 0x0032007Fu);   // half way, 127.5 truncated
    EXPECT_EQ(table[128 * 256 + 1], 0x006400FFu);  // the palette colour, alpha byte 0
    EXPECT_EQ(table[255 * 256 + 1], 0x00FDFDFFu);  // one step short of white
    EXPECT_EQ(table[128 * 256 + 0], 0u);
    EXPECT_EQ(table[255 * 256 + 0], 0x00FDFDFDu);

    // shadingLutPalette keeps the low byte of each product.
    Palette& darks = addPalette("darks");
    Palette& lights = addPalette("lights");
    darks.colors.fill(0xFFFFFF);
    lights.colors.fill(0xFFFFFF);
    darks.colors[2] = 0x031005;
    lights.colors[7] = 0x051033;
    make("shadingLutPalette lut darks lights")->run(0);
    EXPECT_EQ(table[0], 0x010101u);  // 255 x 255 = 65025
    EXPECT_EQ(table[65535], 0x010101u);
    EXPECT_EQ(table[2 * 256 + 7], 0x0F00FFu);  // 3 x 5, 16 x 16 = 256, 5 x 51

    // alphaLut steps from the first palette toward the second.
    ramp("same").colors[9] = 0xFF123456;
    make("alphaLut lut same same")->run(0);
    for (int row : {0, 100, 255}) {
        EXPECT_EQ(table[row * 256 + 9], 0x123456u) << row;
        EXPECT_EQ(table[row * 256 + 200], 200u) << row;
    }
    addPalette("black");
    addPalette("white").colors.fill(0xFFFFFF);
    make("alphaLut lut black white")->run(0);
    EXPECT_EQ(table[128 * 256 + 3], 0x7F7F7Fu);
    EXPECT_EQ(table[255 * 256 + 3], 0xFEFEFEu);
}

TEST_F(PalettesTest, BlendsTruncateAndWrapOutsideZeroToOne) {
    Color& target = addColor("target", 0);
    addColor("from", 0xAA0064FF);  // alpha 0xAA, red 0, green 100, blue 255
    addColor("to", 0x00FF0000);
    make("blendColor target from to constFloat 0.5")->run(0);
    EXPECT_EQ(target.value, 0xAA7F327Fu);  // 127.5 truncated; the alpha byte is the background's
    make("blendColor target from to constFloat 2")->run(0);
    EXPECT_EQ(target.value, 0xAAFE9C01u);  // 510, -100 and -255 keep their low bytes

    Palette& out = addPalette("out");
    Palette& background = addPalette("background");
    Palette& foreground = addPalette("foreground");
    background.colors[3] = 0x000064;
    foreground.colors[3] = 0x0000C8;
    foreground.colors[4] = 0x0A0000;
    make("blendPalette out background foreground constFloat 0.25")->run(0);
    EXPECT_EQ(out.colors[3], 0x00007Du);  // 100 + 25
    EXPECT_EQ(out.colors[4], 0x020000u);  // 2.5
    EXPECT_EQ(out.colors[5], 0u);
}

TEST_F(PalettesTest, RotatePaletteMapping) {
    ramp("source");
    Palette& target = addPalette("target");
    make("rotatePalette target source constInt 0")->run(0);
    EXPECT_EQ(target.colors, ramp("check").colors);

    make("rotatePalette target source constInt 200")->run(0);
    // Past source entry 255 back to the start at 56; from 200 on, entry i - 200.
    for (auto [i, value] : {std::pair{0, 200u}, {55, 255u}, {56, 0u}, {199, 143u}, {200, 0u}, {255, 55u}})
        EXPECT_EQ(target.colors[i], value) << i;

    // 257 turns by 1; in place turns as from a copy.
    make("rotatePalette target source constInt 257")->run(0);
    Palette& self = ramp("self");
    make("rotatePalette self self constInt 1")->run(0);
    EXPECT_EQ(self.colors, target.colors);
}

TEST_F(PalettesTest, PaletteAlphaBytes) {
    Palette& palette = ramp("pal");
    palette.colors[5] = 0x33ABCDEF;
    make("setPaletteAlpha pal 128")->run(0);
    EXPECT_EQ(palette.colors[5], 0x80ABCDEFu);
    EXPECT_EQ(palette.colors[255], 0x800000FFu);
    make("setPaletteAlphagradient pal")->run(0);
    EXPECT_EQ(palette.colors[5], 0x05ABCDEFu);
    EXPECT_EQ(palette.colors[255], 0xFF0000FFu);
}

}  // namespace
}  // namespace vz::test
