// Every family checks the layers and numbers of a line when it is read, with a message
// naming the keyword and what is wrong.
#include "script/OffsetsTable.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

TEST_F(EffectTest, LinesWithLayersOfTheWrongSizeOrNumbersOutOfRangeAreRefused) {
    for (auto [name, w, h] : {std::tuple{"c4x4", 4, 4},
                              {"c4x5", 4, 5},
                              {"c2x2", 2, 2},
                              {"c255", 255, 256},
                              {"c128", 128, 128},
                              {"c256", 256, 256},
                              {"c3x2", 3, 2},
                              {"c4x2", 4, 2},
                              {"c4x1", 4, 1},
                              {"font", 4, 35}})
        addLayer32(name, w, h);
    for (auto [name, w, h] : {std::tuple{"b4x4", 4, 4},
                              {"b4x3", 4, 3},
                              {"b4x2", 4, 2},
                              {"b4x1", 4, 1},
                              {"b8x1", 8, 1},
                              {"b3x1", 3, 1},
                              {"b256", 256, 256}})
        addLayer8(name, w, h);
    add(std::make_unique<OffsetsTable>(4, 4), "off4x4");
    add(std::make_unique<OffsetsTable>(4, 3), "off4x3");
    addPalette("pal");
    addColor("col", 0);
    const std::pair<const char*, const char*> cases[] = {
        {"copyLayerRandomOffset32bpp c4x4 c2x2 -1 0 1 constInt 32",
         "copyLayerRandomOffset32bpp : maxOffsetX -1 is not within 0 to 32768"},
        {"copyLayerWrapAround32bpp c2x2 c2x2 constInt 0 constInt 0 constInt 32",
         "copyLayerWrapAround32bpp : target and source must be different layers"},
        {"playVideo32bpp c4x4 c2x2 0 constInt 0 constInt 32", "playVideo32bpp : numFrames 0 is not within 1 to 32768"},
        {"combination32bpp c4x4 b4x4 b4x4 c255", "combination32bpp : the lut must hold 256x256 entries, it is 255x256"},
        {"tunnel32bpp c4x4 c128 off4x4 constVector2 0 0",
         "tunnel32bpp : the texture must hold 256x256 entries, it is 128x128"},
        {"tunnel32bpp c4x4 c256 off4x3 constVector2 0 0",
         "tunnel32bpp : offsets table holds 12 pixels, the target needs 16"},
        {"tunnelLighted32bpp c4x4 b256 b4x2 c256 off4x4 constVector2 0 0",
         "tunnelLighted32bpp : light map holds 8 pixels, the target needs 16"},
        {"fennickCouloir32bpp c4x4 b256 c128 constFloat 0 constFloat 0",
         "fennickCouloir32bpp : the lut must hold 256x256 entries, it is 128x128"},
        {"multiTunnels32bpp c4x4 c256 constVector2 0 0 0",
         "multiTunnels32bpp : the number of tunnels 0 is not within 1 to 16"},
        {"hBlurFilter32bpp c4x4 c4x5 constInt 2", "hBlurFilter32bpp : source is 4x5, the target is 4x4"},
        {"kernelBlurFilter32bpp c4x4 c4x4", "kernelBlurFilter32bpp : target and source must be different layers"},
        {"pixelizeFilter32bpp c4x4 c4x4 b4x3", "pixelizeFilter32bpp : pattern is 4x3, the target is 4x4"},
        {"patternTransitionBool32bpp c4x2 c4x4 b4x1",
         "patternTransitionBool32bpp : pattern holds 4 pixels, the target needs 8"},
        {"patternTransitionAlpha32bpp c4x2 c3x2 b4x2",
         "patternTransitionAlpha32bpp : buffer is 3x2, smaller than the target's 4x2"},
        // Another shape but enough pixels: the pattern is read with the target's row length.
        {"patternTransitionBool32bpp c4x2 c4x4 b8x1", "no error"},
        {"PutStringKeytrack32bpp c4x4 font constSprite 0 0 1 1 constInt 32 constFloat 1 A",
         "PutStringKeytrack32bpp : the font picture is 4x35, lower than its 36 glyph cells"},
        {"shadingLut c4x4 pal col col", "shadingLut : the lut must hold 256x256 entries, it is 4x4"},
        {"spriteAlphamapKeytrack32bpp c4x4 c4x1 b3x1 constSprite 0 0 1 1",
         "spriteAlphamapKeytrack32bpp : the alpha map is 3x1, the picture 4x1"}};
    for (auto [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

}  // namespace
}  // namespace vz::test
