#include "effects/rendu/BlendOperators.hpp"
#include "script/Keytrack.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Sprites : public EffectTest {
protected:
    Layer32bpp& addPicture(const std::string& name, int w, int h, const Pixels& values) {
        Layer32bpp& picture = addLayer32(name, w, h);
        setPixels(picture, values);
        return picture;
    }
    // A square-stepped sprite track: (x, y, scale, scale) from each time on.
    void addGrowingTrack(const std::string& name, float x, std::vector<float> times, std::vector<float> scales) {
        auto track = std::make_unique<KeytrackSprite>();
        track->times = std::move(times);
        for (float s : scales) track->values.push_back({x, 0, s, s});
        track->interpolation = Square;
        add<KeytrackSprite>(std::move(track), name);
    }
    // Clears the layer, runs the component at t and shows the layer as text.
    static std::string drawn(Layer32bpp& layer, Component& component, float t = 0) {
        std::fill_n(layer.pixels, layer.pixelCount(), 0u);
        component.run(t);
        return view(layer);
    }
    // The value itself for 0-9 ('.' for 0), '?' for others.
    static std::string view(const Layer32bpp& layer) {
        return textOf(layer, [](std::uint32_t p) { return p == 0 ? '.' : p < 10 ? '0' + p : '?'; });
    }
    std::string drawnAt(Layer32bpp& screen, const std::string& key) {
        return drawn(screen, *make("spriteKeytrack32bpp screen pic constSprite " + key + " constInt 32"));
    }
};

TEST_F(Sprites, ClippedAtEachEdge) {
    Layer32bpp& screen = addLayer32("screen", 16, 4);
    addPicture("pic", 4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    const std::string empty = "................|................|................|................";
    const std::pair<const char*, std::string> cases[] = {
        {"-1 -1 1 1", "78..............|................|................|................"},  // left and top overhangs
        {"1 0 1 1", "................|..............12|..............56|................"},    // px = 14: two columns
        {"1.125 0 1 1", empty},  // px = 15, the last column: strict
        {"0 1 1 1", empty},      // py = 3, the last row
        {"0 0.5 1 1",
         "................|................|......1234......|......5678......"},  // py = 2 reaches the bottom
        {"-1.25 0 1 1", empty}};                                                  // px = -4 = -width
    for (const auto& [key, shown] : cases) EXPECT_EQ(drawnAt(screen, key), shown) << key;
}

TEST_F(Sprites, ScaledSpritesStepTheSourceAndCentreWithTheLastFramesScale) {
    Layer32bpp& screen = addLayer32("screen", 16, 6);
    addPicture("pic", 2, 2, {1, 2, 3, 4});
    addGrowingTrack("grow", 0, {0, 1, 10}, {1, 2, 2});
    auto sprite = make("spriteKeytrack32bpp screen pic grow constInt 32");
    EXPECT_EQ(drawn(screen, *sprite, 0),
              "................|................|.......12.......|.......34.......|................|................");
    // Drawn at twice the size, but centred with the scale of the previous frame: px = 7.
    EXPECT_EQ(drawn(screen, *sprite, 1),
              "................|................|.......1122.....|.......1122.....|.......3344.....|.......3344.....");
    // Now centred with 2: px = 6, py = 1.
    EXPECT_EQ(drawn(screen, *sprite, 2),
              "................|......1122......|......1122......|......3344......|......3344......|................");

    // A scaled left overhang starts the source at 1 x stepX = half a pixel: px = floor(0 - 1) = -1.
    addGrowingTrack("left", -1, {0, 1, 10}, {1, 2, 2});
    auto edge = make("spriteKeytrack32bpp screen pic left constInt 32");
    edge->run(0);
    EXPECT_EQ(drawn(screen, *edge, 1),
              "................|................|122.............|122.............|344.............|344.............");

    // Shrunk: every other source pixel; px = floor(4 - 1) = 3, py = floor(1 - 0.5) = 0.
    Layer32bpp& small = addLayer32("small", 8, 2);
    addPicture("wide", 4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    auto half = make("spriteKeytrack32bpp small wide constSprite 0 0 0.5 0.5 constInt 32");
    half->run(0);
    EXPECT_EQ(drawn(small, *half), "...13...|........");
}

TEST_F(Sprites, EmptyNegativeAndExtremeScalesStayInsideBothPictures) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    addPicture("pic", 3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    for (const char* key : {"0 0 0 1", "0 0 1 0", "0 0 -1 1", "0 0 0.3 1"})
        EXPECT_EQ(drawnAt(screen, key).find_first_not_of(".|"), std::string::npos) << key;
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
    EXPECT_EQ(screen.row(0)[2], 0x00202020u);  // black stays transparent
}

TEST_F(Sprites, AlphaMapAlphaChannelAndBitmapForms) {
    const std::uint32_t white = 0x00FFFFFF, back = 0x00402010;
    Layer32bpp& screen = addLayer32("screen", 8, 2, back);
    addPicture("pic", 4, 1, Pixels(4, white));
    const std::uint8_t levels[4] = {0, 16, 32, 255};
    std::copy(levels, levels + 4, addLayer8("alpha", 4, 1).pixels);
    make("spriteAlphamapKeytrack32bpp screen pic alpha constSprite 0 0 1 1")->run(0);
    EXPECT_EQ(Pixels(screen.row(0) + 2, screen.row(0) + 6), (Pixels{back, blendPixel(16, white, back), white, white}));

    Layer32bpp& other = addLayer32("other", 8, 2, back);
    addPicture("own", 4, 1, {white, 0x10FFFFFF, 0x20FFFFFF, 0xFFFFFFFF});
    make("spriteAlphachanelKeytrack32bpp other own constSprite 0 0 1 1")->run(0);
    EXPECT_EQ(Pixels(other.row(0) + 2, other.row(0) + 6),
              (Pixels{back, blendPixel(16, 0x10FFFFFF, back), 0x20FFFFFF, 0xFFFFFFFF}));

    Layer32bpp& paletted = addLayer32("paletted", 4, 2, 9);
    addLayer8("indices", 2, 1).pixels[1] = 7;
    addPalette("pal").colors[7] = 5;
    make("spriteBitmapKeytrack32bpp paletted indices pal constSprite 0 0 1 1")->run(0);
    EXPECT_EQ(view(paletted), "9959|9999");
}

TEST_F(Sprites, RotatedSpriteTurnsClockwiseAndShrinksWithDepth) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    addPicture("pic", 2, 1, {1, 2});
    const auto draw = [&](const std::string& position, const std::string& zoom, const std::string& angle) {
        return drawn(screen, *make("spriteRotKeytrack32bpp screen pic constVector3 " + position + " constFloat " +
                                   zoom + " constFloat " + angle + " constInt 32"));
    };
    // Unturned at depth 0 (or zoom 2 one unit deep): exactly the plain sprite.
    const std::string flat = "........|........|........|...12...|........|........|........|........";
    EXPECT_EQ(draw("0 0 0", "1", "0"), flat);
    EXPECT_EQ(draw("0 0 1", "2", "0"), flat);
    // A quarter turn puts 2 below 1; half a turn, left of it.
    const std::string quarter = draw("0 0 0", "1", "1.5707964"), half = draw("0 0 0", "1", "3.1415927");
    EXPECT_EQ(quarter.find('2'), quarter.find('1') + 9);
    EXPECT_EQ(half.find('2') + 1, half.find('1'));
    // Zoom 0, and a depth at the eye, draw nothing.
    EXPECT_EQ(draw("0 0 0", "0", "0").find_first_not_of(".|"), std::string::npos);
    EXPECT_EQ(draw("0 0 -1", "1", "0").find_first_not_of(".|"), std::string::npos);
}

}  // namespace
}  // namespace vz::test
