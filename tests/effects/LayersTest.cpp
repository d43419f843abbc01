#include <numeric>
#include <tuple>

#include "core/Zbuffer.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/LayerRect.hpp"
#include "effects/rendu/ScaleDown.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

constexpr std::uint32_t X = 0xEEEEEE;  // untouched target pixels

class LayersTest : public EffectTest {
protected:
    // A layer whose pixel i holds first + i, so that a copy shows where it read from.
    Layer32bpp& numbered32(const std::string& name, int w, int h, std::uint32_t first = 0) {
        Layer32bpp& layer = addLayer32(name, w, h);
        std::iota(layer.pixels, layer.pixels + layer.pixelCount(), first);
        return layer;
    }
};

// '.' for 0, '#' for 0xFF, '?' for anything else.
std::string picture(const Layer32bpp& layer) {
    return textOf(layer, [](std::uint32_t p) { return p == 0 ? '.' : p == 0xFF ? '#' : '?'; });
}

TEST(FillRect, ClipsOneShortOfTheRightAndBottomEdgesAndSkipsOutsidePositions) {
    Layer32bpp layer(6, 4);
    layer.posX = layer.posY = 1;
    fillRect(layer, 1000, 1000, 0xFF, renduNormal);
    EXPECT_EQ(picture(layer), "......|.####.|.####.|......");

    Layer32bpp inside(6, 4);
    inside.posX = 2;
    fillRect(inside, 2, 3, 0xFF, renduNormal);
    EXPECT_EQ(picture(inside), "..##..|..##..|..##..|......");
    // A row of the whole pixel count and a height of 2 (the fading layer's call).
    inside.posX = 0;
    fillRect(inside, 24, 2, 0x80, renduGlenz50);
    EXPECT_EQ(Pixels(inside.pixels, inside.pixels + 18),
              (Pixels{0x40, 0x40, 0xBF, 0xBF, 0x40, 0, 0x40, 0x40, 0xBF, 0xBF, 0x40, 0, 0, 0, 0xFF, 0xFF, 0, 0}));

    Layer32bpp outside(4, 3);
    for (auto [x, y] : {std::pair{-1, 0}, {4, 0}, {0, -1}, {0, 3}}) {
        outside.posX = x;
        outside.posY = y;
        fillRect(outside, 2, 2, 0xFF, renduNormal);
    }
    EXPECT_EQ(picture(outside), "....|....|....");
}

TEST_F(LayersTest, CopyRectClipsAtTheTargetAndRunsOnPastTheSourceEdgeWithoutReadingOutsideIt) {
    Layer32bpp layer(5, 4);
    layer.posX = 2;
    layer.posY = 1;
    copyRect(layer, numbered32("square", 8, 8, 1), 0, 0, 100, 100, renduNormal);  // 3 columns and 3 rows fit
    EXPECT_EQ(pixelsOf(layer), (Pixels{0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 0, 0, 9, 10, 11, 0, 0, 17, 18, 19}));

    Layer32bpp wideCopy(3, 2);
    copyRect(wideCopy, numbered32("wide", 4, 3, 1), 2, 0, 3, 2, renduNormal);  // runs into the next row
    EXPECT_EQ(pixelsOf(wideCopy), (Pixels{3, 4, 5, 7, 8, 9}));

    const Layer32bpp& source = numbered32("source", 4, 2, 1);
    Layer32bpp target(3, 3);
    copyRect(target, source, 2, 1, 3, 3, renduNormal);  // second row starts at pixel 10 of 8
    EXPECT_EQ(pixelsOf(target), (Pixels{7, 8, 0, 0, 0, 0, 0, 0, 0}));
    copyRect(target, source, -2, 0, 3, 1, renduNormal);  // starts two pixels before it
    EXPECT_EQ(Pixels(target.pixels, target.pixels + 3), (Pixels{7, 8, 1}));

    Layer32bpp& grey = addLayer32("grey", 2, 2, 0x00C8C8C8);
    Layer32bpp blended(2, 2);
    std::fill_n(blended.pixels, 4, 0x00646464u);
    copyRect(blended, grey, 0, 0, 2, 2, renduAdd);
    EXPECT_EQ(blended.pixels[3], 0x00FFFFFFu);  // the bulk add saturates at 255
    copyRect(blended, grey, 0, 0, 2, 2, renduSub);
    EXPECT_EQ(blended.pixels[0], 0x00373737u);
}

TEST(EightBitKernels, CopyRect8ClipsLikeTheColourCopyAndScaleDownStridesByHalfTheSourceWidth) {
    using Bytes = std::vector<std::uint8_t>;
    Layer8bpp source(4, 4);
    std::iota(source.pixels, source.pixels + 16, std::uint8_t{1});
    Layer8bpp layer(3, 3);
    layer.posX = layer.posY = 1;
    copyRect8(layer, source, 1, 1, 5, 5);
    EXPECT_EQ(Bytes(layer.pixels, layer.pixels + 9), (Bytes{0, 0, 0, 0, 6, 7, 0, 10, 11}));
    layer.posX = 3;
    copyRect8(layer, source, 0, 0, 1, 1);
    EXPECT_EQ(layer.pixels[5], 7);

    for (int i = 0; i < 16; ++i) source.pixels[i] = static_cast<std::uint8_t>(i * 10);
    Layer8bpp target(1, 4);  // holds the 2 x 2 result as a 1 x 4 run
    scaleDown(target, source);
    EXPECT_EQ(Bytes(target.pixels, target.pixels + 4), (Bytes{25, 45, 105, 125}));
    Layer8bpp small(1, 3);  // too short for the second row: it is left out
    scaleDown(small, source);
    EXPECT_EQ(Bytes(small.pixels, small.pixels + 3), (Bytes{25, 45, 0}));
}

TEST_F(LayersTest, OneLineFillsCopiesAndVideosOnAFreshTarget) {
    numbered32("tile", 3, 2, 1);  // 1 2 3 / 4 5 6
    numbered32("film", 2, 7);     // 3 frames of 2 rows (4 pixels); the 7th row is never shown
    numbered32("lut", 256, 256);
    addColor("white", 0xFFFFFF);
    addLayer32("whiteLayer", 3, 2, 0xFFFFFF);
    const std::uint8_t levels[] = {0, 16, 32, 255};
    std::copy(levels, levels + 4, addLayer8("map", 2, 2).pixels);
    setPixels(addLayer32("sprite", 3, 1), {0x00123456, 0x20123456, 0xFF654321});
    Layer8bpp& strip = addLayer8("strip", 4, 2);
    std::iota(strip.pixels, strip.pixels + 8, std::uint8_t{0});
    Palette& palette = addPalette("pal");
    std::iota(palette.colors.begin(), palette.colors.begin() + 8, 0x100u);
    addLayer8("image", 2, 1, 255).pixels[0] = 5;
    addLayer8("light", 2, 1).pixels[1] = 255;
    addLayer32("block", 4, 4, 0x04040404).pixels[0] = 0x00FFFFFF;
    addLayer8("band", 256, 1, 1);
    Pixels banded(300, 0x101);
    std::fill_n(banded.begin(), 10, X);

    const std::tuple<std::string, int, int, Pixels> cases[] = {
        {"fillColor32bpp target constColor 255 255 255 constInt 16", 3, 2, Pixels(6, 0xF6F6F6)},
        {"fillColor32bpp target constColor 1 2 3 constInt 99", 3, 2, Pixels(6, 0x010203)},  // outside the table: normal
        // Alpha maps (a run of 4 pixels here) skip 0, blend levels, copy from 32 on and end with the map.
        {"fillColorAlphamap32bpp target white map", 3, 2, {X, 0xF6F6F6, 0xFFFFFF, 0xFFFFFF, X, X}},
        {"copyLayerAlphamap32bpp target whiteLayer map", 3, 2, {X, 0xF6F6F6, 0xFFFFFF, 0xFFFFFF, X, X}},
        {"copyLayerAlphachanel32bpp target sprite", 3, 1, {X, 0x20123456, 0xFF654321}},
        // Copies run flat over the smaller pixel count; the bulk add saturates at 255.
        {"copyLayer32bpp target tile constInt 32", 4, 3, {1, 2, 3, 4, 5, 6, X, X, X, X, X, X}},
        {"copyLayer32bpp target tile constInt 33", 2, 2, {0xEEEEEF, 0xEEEEF0, 0xEEEEF1, 0xEEEEF2}},
        // Wrap-around scrolls (7 % 3 = 1) and leaves a band for negative offsets.
        {"copyLayerWrapAround32bpp target tile constInt 7 constInt 1 constInt 32",
         5,
         2,
         {5, 6, 4, 5, 6, 2, 3, 1, 2, 3}},
        {"copyLayerWrapAround32bpp target tile constInt -2 constInt 0 constInt 32",
         5,
         2,
         {X, X, 1, 2, 3, X, X, 4, 5, 6}},
        {"copyBitmapLayerWrapAround32bpp target band pal constInt -10 constInt 0", 300, 1, banded},
        // Videos: 4 % 3 = frame 1, -1 the last frame; a frame of 4 pixels cut to the target's 3.
        {"playVideo32bpp target film 3 constInt 4 constInt 32", 2, 2, {4, 5, 6, 7}},
        {"playVideo32bpp target film 3 constInt -1 constInt 32", 2, 2, {8, 9, 10, 11}},
        {"playBitmapVideo32bpp target strip pal 2 constInt 1", 3, 1, {0x104, 0x105, 0x106}},
        {"combination32bpp target image light lut", 3, 1, {5, 65535, X}},  // light x 256 + colour
        {"scaleDown32bpp target block", 2, 2, {0x424242, 0x040404, 0x040404, 0x040404}}};
    for (const auto& [line, w, h, expected] : cases) {  // each on a fresh target of untouched pixels
        show.repository.sub("target");
        Layer32bpp& target = addLayer32("target", w, h, X);
        make(line)->run(0);
        EXPECT_EQ(pixelsOf(target), expected) << line;
    }
}

TEST_F(LayersTest, FadeColorsRoundsHoldsTheForegroundAndWrapsBeforeTimeZero) {
    Layer32bpp& target = addLayer32("target", 2, 1);
    addColor("from", 0xFF000000);
    addColor("to", 0x00FF6401);  // red 255, green 100, blue 1
    auto fade = make("fadeColors32bpp target from to constInt 32");
    fade->run(0.5f);
    EXPECT_EQ(target.pixels[0], 0x00803201u);  // 127.5 -> 128, 50, 0.5 -> 1 (halves away from zero)
    fade->run(2.5f);
    EXPECT_EQ(target.pixels[1], 0x00FF6401u);
    fade->run(-1.0f);  // -255 and -100 keep their low bytes
    EXPECT_EQ(target.pixels[0], 0x00019CFFu);
}

TEST_F(LayersTest, FadeLayerGrowsFromTheTopRowsThenCoversTheLayer) {
    Layer32bpp& target = addLayer32("target", 4, 40, X);
    auto fade = make("fadeLayer32bpp target constColor 0 0 255");
    // Rows filled up to (the last column is never reached): 16 at t = 0.5, 32 at t = 1.
    for (auto [t, lastRow] : {std::pair{0.5f, 16}, {1.0f, 32}}) {
        fade->run(t);
        for (int y = 0; y < 40; ++y)
            ASSERT_EQ(Pixels(target.row(y), target.row(y) + 4),
                      y <= lastRow ? (Pixels{0xFF, 0xFF, 0xFF, X}) : Pixels(4, X))
                << t << " " << y;
    }
    fade->run(1.01f);
    EXPECT_EQ(pixelsOf(target), Pixels(160, 0xFF));
    Layer32bpp& early = addLayer32("early", 4, 4, X);
    make("fadeLayer32bpp early constColor 0 0 255")->run(-5.0f);
    EXPECT_EQ(pixelsOf(early), Pixels(16, X));
}

TEST_F(LayersTest, AlphaChannelAndBitmapCopies) {
    Layer32bpp& target = addLayer32("target", 3, 1, 0x11223344);
    Layer8bpp& bytes = addLayer8("bytes", 2, 1, 200);
    bytes.pixels[0] = 7;
    make("copyAlphachannel32bpp target bytes")->run(0);  // only as far as the 8-bit layer reaches
    EXPECT_EQ(pixelsOf(target), (Pixels{0x07223344, 0xC8223344, 0x11223344}));
    make("fillAlphachannel32bpp target 128")->run(0);
    EXPECT_EQ(pixelsOf(target), Pixels(3, 0x80223344));

    Palette& palette = addPalette("pal");
    palette.colors[7] = 0xFF0A0B0C;
    palette.colors[200] = 0x00C0C0C0;
    make("copyBitmapLayer32bpp target bytes pal")->run(0);
    EXPECT_EQ(pixelsOf(target), (Pixels{0xFF0A0B0C, 0x00C0C0C0, 0x80223344}));

    Layer8bpp& copy = addLayer8("copy", 3, 1, 9);
    make("copyLayer8bpp copy bytes")->run(0);
    EXPECT_EQ(std::vector<int>(copy.pixels, copy.pixels + 3), (std::vector<int>{7, 200, 9}));
    make("fillColor8bpp bytes 300")->run(0);  // an unsignedChar keeps the low byte
    EXPECT_EQ(std::vector<int>(bytes.pixels, bytes.pixels + 2), std::vector<int>(2, 44));
}

// Source pixel (x, y) of a 100 x 100 numbered source holds y x 100 + x, so target pixel 0
// tells the offsets a tiling used.
TEST_F(LayersTest, RandomOffsetsChangeOncePerPeriodWithSeedsInCreationOrder) {
    Layer32bpp& first = addLayer32("first", 3, 2);
    Layer32bpp& second = addLayer32("second", 3, 2);
    numbered32("source", 100, 100);
    auto tiles = make("copyLayerRandomOffset32bpp first source 1000 1000 1 constInt 32");   // seeds 3, 4
    auto other = make("copyLayerRandomOffset32bpp second source 1000 1000 1 constInt 32");  // seeds 5, 6
    tiles->run(0.0f);
    other->run(0.0f);
    EXPECT_EQ(pixelsOf(first), (Pixels{6045, 6046, 6047, 6145, 6146, 6147}));  // offsets 45, 60
    EXPECT_EQ(second.pixels[0], 9176u);                                        // offsets 76, 91
    tiles->run(0.99f);
    EXPECT_EQ(first.pixels[0], 6045u);
    tiles->run(1.0f);  // 502 and 669: far tiles, same source pixels as offsets 2 and 69
    EXPECT_EQ(first.pixels[0], 6902u);

    // With a period of 3 s the first change comes at t = 2: until then the offsets are 0.
    Layer32bpp& late = addLayer32("late", 4, 1);
    make("copyLayerRandomOffset32bpp late source 1000 1000 3 constInt 32")->run(1.9f);
    EXPECT_EQ(pixelsOf(late), (Pixels{0, 1, 2, 3}));
}

TEST_F(LayersTest, RandomTilesRepeatAndClipAtTheTarget) {
    Layer32bpp& target = addLayer32("target", 5, 3);
    numbered32("tile", 2, 2, 1);  // 1 2 / 3 4
    make("copyLayerRandomOffset32bpp target tile 0 0 1 constInt 32")->run(0);
    EXPECT_EQ(pixelsOf(target), (Pixels{1, 2, 1, 2, 1, 3, 4, 3, 4, 3, 1, 2, 1, 2, 1}));

    addLayer8("bitmap", 2, 1).pixels[1] = 1;
    Palette& palette = addPalette("pal");
    palette.colors[0] = 0xA0;
    palette.colors[1] = 0xB0;
    // Seeds 5 and 6 (the component above took 3 and 4) with amplitude 100: offsets 7 and 9.
    make("copyBitmapLayerRandomOffset32bpp target bitmap pal 100 100 1")->run(0);
    EXPECT_EQ(pixelsOf(target),
              (Pixels{0xB0, 0xA0, 0xB0, 0xA0, 0xB0, 0xB0, 0xA0, 0xB0, 0xA0, 0xB0, 0xB0, 0xA0, 0xB0, 0xA0, 0xB0}));
}

TEST_F(LayersTest, CropReadsOnIntoTheNextRowsAndResetsThePosition) {
    Layer32bpp& target = addLayer32("target", 3, 2, X);
    target.posX = target.posY = 1;
    numbered32("source", 4, 3);  // pixels 0..11
    make("crop target source 2 1")->run(0);
    EXPECT_EQ(std::pair(target.posX, target.posY), std::pair(0, 0));
    // Row 0 reads 6 7 then runs on into the next source row; pixel 12 would be past the end.
    EXPECT_EQ(pixelsOf(target), (Pixels{6, 7, 8, 10, 11, X}));
}

TEST_F(LayersTest, UpdateZbufferClearsOnlyWhenTheStampWraps) {
    Zbuffer& z = add(std::make_unique<Zbuffer>(2, 1), "z");
    auto update = make("updateZbuffer z");
    z.pixels[0] = 0x12345678;
    for (int run = 1; run <= 127; ++run) update->run(0);
    EXPECT_EQ(z.stamp, 0x7F000000u);
    EXPECT_EQ(z.pixels[0], 0x12345678u);
    update->run(0);  // the 128th run
    EXPECT_EQ(z.stamp, 0u);
    EXPECT_EQ(z.pixels[0], 0u);
}

TEST_F(LayersTest, FogBlendsByDepthAndSkipsFarDepths) {
    Layer32bpp& screen = addLayer32("screen", 5, 1, 0);
    Zbuffer& z = add(std::make_unique<Zbuffer>(4, 1), "z");
    // k = 0: the fog colour; then levels 16 and 1; bit 16 set: kept.
    setPixels(z, {0, 16u << 11, 31u << 11, 0x00010000});
    addLayer32("ignored", 1, 1);
    make("fogZbuffer32bpp screen ignored z constColor 255 255 255")->run(0);
    // The fifth screen pixel has no depth word and stays as it is.
    EXPECT_EQ(pixelsOf(screen), (Pixels{0xFFFFFF, 0x7F7F7F, 0x070707, 0, 0}));
}

}  // namespace
}  // namespace vz::test
