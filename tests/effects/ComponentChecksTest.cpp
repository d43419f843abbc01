// Every family checks the layers and numbers of a line when it is read, with a message
// naming the keyword and what is wrong.
#include "script/OffsetsTable.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

TEST_F(EffectTest, LinesWithLayersOfTheWrongSizeOrNumbersOutOfRangeAreRefused) {
    // Layers named by their depth ('c' 32-bit, 'b' 8-bit) and size.
    for (const std::string name : {"c4x4", "c4x5", "c2x2", "c255x256", "c128x128", "c256x256", "c3x2", "c4x2", "c4x1",
                                   "c4x35", "b4x4", "b4x3", "b4x2", "b4x1", "b8x1", "b3x1", "b256x256"}) {
        const int w = std::stoi(name.substr(1)), h = std::stoi(name.substr(name.find('x') + 1));
        if (name[0] == 'c')
            addLayer32(name, w, h);
        else
            addLayer8(name, w, h);
    }
    add(std::make_unique<OffsetsTable>(4, 4), "off4x4");
    add(std::make_unique<OffsetsTable>(4, 3), "off4x3");
    addPalette("pal");
    addColor("col", 0);
    const std::pair<const char*, const char*> cases[] = {
        {"kernelBlurFilter32bpp c4x4 c4x4", "kernelBlurFilter32bpp : target and source must be different layers"},
        {"playVideo32bpp c4x4 c2x2 0 constInt 0 constInt 32", "playVideo32bpp : numFrames 0 is not within 1 to 32768"},
        {"combination32bpp c4x4 b4x4 b4x4 c255x256",
         "combination32bpp : the lut must hold 256x256 entries, it is 255x256"},
        {"tunnel32bpp c4x4 c128x128 off4x4 constVector2 0 0",
         "tunnel32bpp : the texture must hold 256x256 entries, it is 128x128"},
        {"tunnel32bpp c4x4 c256x256 off4x3 constVector2 0 0",
         "tunnel32bpp : offsets table holds 12 pixels, the target needs 16"},
        {"tunnelLighted32bpp c4x4 b256x256 b4x2 c256x256 off4x4 constVector2 0 0",
         "tunnelLighted32bpp : light map holds 8 pixels, the target needs 16"},
        {"fennickCouloir32bpp c4x4 b256x256 c128x128 constFloat 0 constFloat 0",
         "fennickCouloir32bpp : the lut must hold 256x256 entries, it is 128x128"},
        {"multiTunnels32bpp c4x4 c256x256 constVector2 0 0 0",
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
        {"PutStringKeytrack32bpp c4x4 c4x35 constSprite 0 0 1 1 constInt 32 constFloat 1 A",
         "PutStringKeytrack32bpp : the font picture is 4x35, lower than its 36 glyph cells"},
        {"shadingLut c4x4 pal col col", "shadingLut : the lut must hold 256x256 entries, it is 4x4"},
        {"spriteAlphamapKeytrack32bpp c4x4 c4x1 b3x1 constSprite 0 0 1 1",
         "spriteAlphamapKeytrack32bpp : the alpha map is 3x1, the picture 4x1"}};
    for (auto [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

}  // namespace
}  // namespace vz::test
