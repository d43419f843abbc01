#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "script/Keytrack.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Sprites : public EffectTest {
protected:
    // A picture whose pixels are the given small values, row after row.
    Layer32bpp& addPicture(const std::string& name, int w, int h, std::vector<std::uint32_t> values) {
        Layer32bpp& picture = addLayer32(name, w, h);
        std::copy(values.begin(), values.end(), picture.pixels);
        return picture;
    }
    // A square-stepped sprite track: (x, y, scale, scale) from each time on.
    void addGrowingTrack(const std::string& name, float x, float y, std::vector<float> times, std::vector<float> scales) {
        auto track = std::make_unique<KeytrackSprite>();
        track->times = std::move(times);
        for (float s : scales) track->values.push_back({x, y, s, s});
        track->interpolation = Square;
        add<KeytrackSprite>(std::move(track), name);
    }
};

// One character per pixel: the value itself for 0-9 ('.' for 0), '?' for others; rows
// separated by '|'.
std::string view(const Layer32bpp& layer) {
    std::string text;
    for (int y = 0; y < layer.height; ++y) {
        if (y) text += '|';
        for (int x = 0; x < layer.width; ++x) {
            const std::uint32_t p = layer.row(y)[x];
            text += p == 0 ? '.' : p < 10 ? static_cast<char>('0' + p) : '?';
        }
    }
    return text;
}

TEST_F(Sprites, PlacedOnTheNormalisedCentreWithBlackTransparent) {
    Layer32bpp& screen = addLayer32("screen", 12, 5);
    addPicture("pic", 4, 2, {1, 2, 0, 4, 5, 6, 7, 8});
    screen.row(1)[6] = 9;
    // px = floor(1 * 6 - 2) = 4, py = floor(1 * 2 - 1) = 1.
    make("spriteKeytrack32bpp screen pic constSprite 0 0 1 1 constInt 32")->run(0);
    EXPECT_EQ(view(screen), "............|....1294....|....5678....|............|............");
    // A black-only picture draws nothing whatever the rendu.
    addPicture("black", 2, 2, {0, 0, 0, 0});
    Layer32bpp& other = addLayer32("other", 4, 4, 3);
    make("spriteKeytrack32bpp other black constSprite 0 0 1 1 constInt 33")->run(0);
    EXPECT_EQ(view(other), "3333|3333|3333|3333");
}

TEST_F(Sprites, ClippedAtEachEdge) {
    Layer32bpp& screen = addLayer32("screen", 16, 4);
    addPicture("pic", 4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    const auto draw = [&](const std::string& at) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0);
        make("spriteKeytrack32bpp screen pic constSprite " + at + " 1 1 constInt 32")->run(0);
        return view(screen);
    };
    // Left and top overhangs start the source at the hidden pixels.
    EXPECT_EQ(draw("-1 -1"), "78..............|................|................|................");
    // px = 14: cut to the last two columns; px = 15 (the last column): not drawn at all.
    EXPECT_EQ(draw("1 0"), "................|..............12|..............56|................");
    EXPECT_EQ(draw("1.125 0"), "................|................|................|................");
    // py = 3 is the last row: not drawn; py = 2 reaches the bottom.
    EXPECT_EQ(draw("0 1"), "................|................|................|................");
    EXPECT_EQ(draw("0 0.5"), "................|................|......1234......|......5678......");
    // Wholly off the left: px = -4 = -width.
    EXPECT_EQ(draw("-1.25 0"), "................|................|................|................");
}

TEST_F(Sprites, ScaledSpritesStepTheSourceAndCentreWithTheLastFramesScale) {
    Layer32bpp& screen = addLayer32("screen", 16, 6);
    addPicture("pic", 2, 2, {1, 2, 3, 4});
    addGrowingTrack("grow", 0, 0, {0, 1, 10}, {1, 2, 2});
    auto sprite = make("spriteKeytrack32bpp screen pic grow constInt 32");
    sprite->run(0);
    EXPECT_EQ(view(screen), "................|................|.......12.......|.......34.......|................|................");
    std::fill_n(screen.pixels, screen.pixelCount(), 0);
    // Drawn at twice the size, but centred with the scale of the previous frame: px = 7.
    sprite->run(1);
    EXPECT_EQ(view(screen), "................|................|.......1122.....|.......1122.....|.......3344.....|.......3344.....");
    std::fill_n(screen.pixels, screen.pixelCount(), 0);
    sprite->run(2);  // now centred with 2: px = 6, py = 1
    EXPECT_EQ(view(screen), "................|......1122......|......1122......|......3344......|......3344......|................");

    // A scaled left overhang starts the source at 1 x stepX = half a pixel.
    std::fill_n(screen.pixels, screen.pixelCount(), 0);
    addGrowingTrack("left", -1, 0, {0, 1, 10}, {1, 2, 2});
    auto edge = make("spriteKeytrack32bpp screen pic left constInt 32");
    edge->run(0);
    std::fill_n(screen.pixels, screen.pixelCount(), 0);
    edge->run(1);  // px = floor(0 - 1) = -1
    EXPECT_EQ(view(screen), "................|................|122.............|122.............|344.............|344.............");

    // Shrunk: every other source pixel.
    Layer32bpp& small = addLayer32("small", 8, 2);
    addPicture("wide", 4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    auto half = make("spriteKeytrack32bpp small wide constSprite 0 0 0.5 0.5 constInt 32");
    half->run(0);
    std::fill_n(small.pixels, small.pixelCount(), 0);
    half->run(0);  // px = floor(4 - 1) = 3, py = floor(1 - 0.5) = 0
    EXPECT_EQ(view(small), "...13...|........");
}

TEST_F(Sprites, EmptyOrNegativeScalesDrawNothing) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    addPicture("pic", 2, 2, {1, 2, 3, 4});
    for (const char* scale : {"0 1", "1 0", "-1 1", "0.4 1"}) {
        make(std::string("spriteKeytrack32bpp screen pic constSprite 0 0 ") + scale + " constInt 32")->run(0);
        EXPECT_EQ(std::count(screen.pixels, screen.pixels + 64, 0u), 64) << scale;
    }
}

TEST_F(Sprites, ExtremeTracksStayInsideBothPictures) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    addPicture("pic", 3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    // Tiny, huge and odd scales and far positions: whatever is drawn comes from the picture.
    for (const char* key : {"0 0 1e30 1e30", "0 0 1e-30 1", "1e30 0 1 1", "-1e30 -1e30 2 2", "0 0 0.3333333 7.1",
                            "0.1 -0.9 100000 0.001"}) {
        auto sprite = make(std::string("spriteKeytrack32bpp screen pic constSprite ") + key + " constInt 32");
        sprite->run(0);
        sprite->run(0);
        for (int i = 0; i < 64; ++i) ASSERT_LT(screen.pixels[i], 10u) << key;
    }
}

TEST_F(Sprites, RenduAppliesToNonBlackPixelsOnly) {
    Layer32bpp& screen = addLayer32("screen", 4, 2, 0x00202020);
    addPicture("pic", 2, 1, {0x00101010, 0});
    make("spriteKeytrack32bpp screen pic constSprite 0 0 1 1 constInt 33")->run(0);
    EXPECT_EQ(screen.row(0)[1], blendPixel(renduAdd, 0x00101010, 0x00202020));
    EXPECT_EQ(screen.row(0)[2], 0x00202020u);
    make("spriteKeytrack32bpp screen pic constSprite 0 0 1 1 constInt 99")->run(0);  // out of range: normal
    EXPECT_EQ(screen.row(0)[1], 0x00101010u);
}

TEST_F(Sprites, AlphaMapAndAlphaChannelSetTheOpacity) {
    Layer32bpp& screen = addLayer32("screen", 8, 2, 0x00402010);
    const std::uint32_t white = 0x00FFFFFF;
    addPicture("pic", 4, 1, {white, white, white, white});
    Layer8bpp& alpha = addLayer8("alpha", 4, 1);
    const std::uint8_t levels[4] = {0, 16, 32, 255};
    std::copy(levels, levels + 4, alpha.pixels);
    make("spriteAlphamapKeytrack32bpp screen pic alpha constSprite 0 0 1 1")->run(0);
    const std::vector<std::uint32_t> expected = {0x00402010, blendPixel(16, white, 0x00402010), white, white};
    EXPECT_EQ(std::vector<std::uint32_t>(screen.row(0) + 2, screen.row(0) + 6), expected);

    Layer32bpp& other = addLayer32("other", 8, 2, 0x00402010);
    addPicture("own", 4, 1, {white, 0x10FFFFFF, 0x20FFFFFF, 0xFFFFFFFF});
    make("spriteAlphachanelKeytrack32bpp other own constSprite 0 0 1 1")->run(0);
    EXPECT_EQ(other.row(0)[3], blendPixel(16, 0x10FFFFFF, 0x00402010));
    EXPECT_EQ(other.row(0)[2], 0x00402010u);
    EXPECT_EQ(other.row(0)[5], 0xFFFFFFFFu);

    addLayer8("narrow", 3, 1);
    EXPECT_EQ(errorOf([&] { make("spriteAlphamapKeytrack32bpp screen pic narrow constSprite 0 0 1 1"); }),
              "spriteAlphamapKeytrack32bpp : the alpha map is 3x1, the picture 4x1");
}

TEST_F(Sprites, BitmapSpriteGoesThroughItsPalette) {
    Layer32bpp& screen = addLayer32("screen", 4, 2, 9);
    Layer8bpp& picture = addLayer8("pic", 2, 1);
    picture.pixels[0] = 0;
    picture.pixels[1] = 7;
    Palette& palette = addPalette("pal");
    palette.colors[7] = 5;
    make("spriteBitmapKeytrack32bpp screen pic pal constSprite 0 0 1 1")->run(0);
    EXPECT_EQ(view(screen), "9959|9999");
}

TEST_F(Sprites, RotatedSpriteTurnsClockwiseAndShrinksWithDepth) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    addPicture("pic", 2, 1, {1, 2});
    const auto draw = [&](const std::string& position, const std::string& zoom, const std::string& angle) {
        std::fill_n(screen.pixels, 64, 0);
        make("spriteRotKeytrack32bpp screen pic constVector3 " + position + " constFloat " + zoom + " constFloat " +
             angle + " constInt 32")
            ->run(0);
        return view(screen);
    };
    // Unturned at depth 0 (or zoom 2 one unit deep): exactly the plain sprite.
    const std::string flat = "........|........|........|...12...|........|........|........|........";
    EXPECT_EQ(draw("0 0 0", "1", "0"), flat);
    EXPECT_EQ(draw("0 0 1", "2", "0"), flat);
    const auto turned = [&](const std::string& angle) {
        const std::string text = draw("0 0 0", "1", angle);
        return std::make_pair(text.find('1'), text.find('2'));
    };
    const auto [one, two] = turned("1.5707964");  // a quarter turn: 2 below 1
    EXPECT_EQ(two, one + 9);
    const auto [one2, two2] = turned("3.1415927");  // half a turn: 2 left of 1
    EXPECT_EQ(two2 + 1, one2);
    // Zoom 0, and a depth at the eye, draw nothing.
    const std::string empty = draw("0 0 0", "0", "0");
    EXPECT_EQ(empty.find_first_not_of(".|"), std::string::npos);
    EXPECT_EQ(draw("0 0 -1", "1", "0"), empty);
}

}  // namespace
}  // namespace vz::test
