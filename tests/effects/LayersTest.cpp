#include <cstdint>
#include <numeric>
#include <vector>

#include "FilterTestPictures.hpp"
#include "script/Zbuffer.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

class LayersTest : public EffectTest {
protected:
    // A layer whose pixel i holds first + i, so that a copy shows where it read from.
    Layer32bpp& numbered32(const std::string& name, int w, int h, std::uint32_t first = 0) {
        Layer32bpp& layer = addLayer32(name, w, h);
        std::iota(layer.pixels, layer.pixels + layer.pixelCount(), first);
        return layer;
    }
};

constexpr std::uint32_t X = 0xEEEEEE;  // untouched target pixels

TEST_F(LayersTest, FillsUseTheSampledRenduAndStopAtTheirMaps) {
    Layer32bpp& target = addLayer32("target", 3, 2, 0x000000);
    make("fillColor32bpp target constColor 255 255 255 constInt 16")->run(0);
    EXPECT_EQ(pixelsOf(target), Pixels(6, 0x7F7F7F));
    make("fillColor32bpp target constColor 1 2 3 constInt 99")->run(0);  // outside the table: normal
    EXPECT_EQ(pixelsOf(target), Pixels(6, 0x010203));

    Layer32bpp& wide = addLayer32("wide", 3, 2, X);
    const std::uint8_t map[] = {0, 16, 32, 255};
    std::copy(map, map + 4, addLayer8("alpha", 2, 2).pixels);
    addColor("white", 0xFFFFFF);
    make("fillColorAlphamap32bpp wide white alpha")->run(0);
    EXPECT_EQ(pixelsOf(wide), (Pixels{X, 0xF6F6F6, 0xFFFFFF, 0xFFFFFF, X, X}));

    Layer8bpp& bytes = addLayer8("bytes", 2, 2);
    make("fillColor8bpp bytes 300")->run(0);  // an unsignedChar keeps the low byte
    EXPECT_EQ(std::vector<int>(bytes.pixels, bytes.pixels + 4), std::vector<int>(4, 44));
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
    for (auto [t, lastRow] : {std::pair{0.5f, 16}, std::pair{1.0f, 32}}) {
        fade->run(t);
        for (int y = 0; y < 40; ++y)
            ASSERT_EQ(Pixels(target.row(y), target.row(y) + 4), y <= lastRow ? (Pixels{0xFF, 0xFF, 0xFF, X}) : Pixels(4, X))
                << t << " " << y;
    }
    fade->run(1.01f);
    EXPECT_EQ(pixelsOf(target), Pixels(160, 0xFF));

    Layer32bpp& early = addLayer32("early", 4, 4, X);
    make("fadeLayer32bpp early constColor 0 0 255")->run(-5.0f);
    EXPECT_EQ(pixelsOf(early), Pixels(16, X));
}

TEST_F(LayersTest, LayerCopiesRunFlatOverTheSmallerCountAndShear) {
    Layer32bpp& target = addLayer32("target", 4, 3, X);
    numbered32("narrow", 3, 2, 1);
    make("copyLayer32bpp target narrow constInt 32")->run(0);
    EXPECT_EQ(pixelsOf(target), (Pixels{1, 2, 3, 4, 5, 6, X, X, X, X, X, X}));

    Layer32bpp& small = addLayer32("small", 2, 2, X);
    make("copyLayer32bpp small narrow constInt 33")->run(0);  // bulk add saturates at 255
    EXPECT_EQ(pixelsOf(small), (Pixels{0xEEEEEF, 0xEEEEF0, 0xEEEEF1, 0xEEEEF2}));

    Layer32bpp& mapped = addLayer32("mapped", 4, 1, 0);
    addLayer32("white", 4, 1, 0xFFFFFF);
    Layer8bpp& alpha = addLayer8("alpha", 3, 1, 32);
    alpha.pixels[1] = 0;
    make("copyLayerAlphamap32bpp mapped white alpha")->run(0);
    EXPECT_EQ(pixelsOf(mapped), (Pixels{0xFFFFFF, 0, 0xFFFFFF, 0}));  // the map ends after 3

    Layer32bpp& under = addLayer32("under", 3, 1, X);
    setPixels(addLayer32("sprite", 3, 1), {0x00123456, 0x20123456, 0xFF654321});
    make("copyLayerAlphachanel32bpp under sprite")->run(0);
    EXPECT_EQ(pixelsOf(under), (Pixels{X, 0x20123456, 0xFF654321}));
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
}

// Source pixel (x, y) of a 100 x 100 numbered source holds y x 100 + x, so target pixel 0
// tells the offsets a tiling used.
TEST_F(LayersTest, RandomOffsetsChangeOncePerPeriodWithSeedsInCreationOrder) {
    Layer32bpp& first = addLayer32("first", 3, 2);
    Layer32bpp& second = addLayer32("second", 3, 2);
    numbered32("source", 100, 100);
    auto tiles = make("copyLayerRandomOffset32bpp first source 1000 1000 1 constInt 32");  // seeds 3, 4
    auto other = make("copyLayerRandomOffset32bpp second source 1000 1000 1 constInt 32");  // seeds 5, 6
    tiles->run(0.0f);
    other->run(0.0f);
    EXPECT_EQ(pixelsOf(first), (Pixels{6045, 6046, 6047, 6145, 6146, 6147}));  // offsets 45, 60
    EXPECT_EQ(second.pixels[0], 9176u);                                          // offsets 76, 91
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
    EXPECT_EQ(pixelsOf(target), (Pixels{0xB0, 0xA0, 0xB0, 0xA0, 0xB0, 0xB0, 0xA0, 0xB0, 0xA0, 0xB0, 0xB0, 0xA0,
                                         0xB0, 0xA0, 0xB0}));

    EXPECT_EQ(errorOf([&] { make("copyLayerRandomOffset32bpp target tile -1 0 1 constInt 32"); }),
              "copyLayerRandomOffset32bpp : maxOffsetX -1 is not within 0 to 32768");
}

TEST_F(LayersTest, WrapAroundScrollsAndLeavesABandForNegativeOffsets) {
    Layer32bpp& target = addLayer32("target", 5, 2, X);
    numbered32("tile", 3, 2, 1);  // 1 2 3 / 4 5 6
    make("copyLayerWrapAround32bpp target tile constInt 7 constInt 1 constInt 32")->run(0);  // 7 % 3 = 1
    EXPECT_EQ(pixelsOf(target), (Pixels{5, 6, 4, 5, 6, 2, 3, 1, 2, 3}));

    Layer32bpp& banded = addLayer32("banded", 5, 2, X);
    make("copyLayerWrapAround32bpp banded tile constInt -2 constInt 0 constInt 32")->run(0);
    EXPECT_EQ(pixelsOf(banded), (Pixels{X, X, 1, 2, 3, X, X, 4, 5, 6}));

    Layer32bpp& wide = addLayer32("wide", 300, 1, X);
    addLayer8("strip", 256, 1, 1);
    Palette& palette = addPalette("pal");
    palette.colors[1] = 0x42;
    make("copyBitmapLayerWrapAround32bpp wide strip pal constInt -10 constInt 0")->run(0);
    EXPECT_EQ(wide.pixels[9], X);
    EXPECT_EQ(wide.pixels[10], 0x42u);
    EXPECT_EQ(wide.pixels[299], 0x42u);

    EXPECT_EQ(errorOf([&] { make("copyLayerWrapAround32bpp tile tile constInt 0 constInt 0 constInt 32"); }),
              "copyLayerWrapAround32bpp : the source must not be the target");
}

TEST_F(LayersTest, CropReadsOnIntoTheNextRowsAndResetsThePosition) {
    Layer32bpp& target = addLayer32("target", 3, 2, X);
    target.posX = 1;
    target.posY = 1;
    numbered32("source", 4, 3);  // pixels 0..11
    make("crop target source 2 1")->run(0);
    EXPECT_EQ(target.posX, 0);
    EXPECT_EQ(target.posY, 0);
    // Row 0 reads 6 7 then runs on into the next source row; pixel 12 would be past the end.
    EXPECT_EQ(pixelsOf(target), (Pixels{6, 7, 8, 10, 11, X}));
}

TEST_F(LayersTest, ScaleDownAveragesBlocksAndStopsAtTheTargetsEnd) {
    Layer32bpp& source = addLayer32("source", 4, 4, 0x04040404);
    source.pixels[0] = 0x00FFFFFF;
    Layer32bpp& half = addLayer32("half", 2, 2, X);
    make("scaleDown32bpp half source")->run(0);
    EXPECT_EQ(pixelsOf(half), (Pixels{0x424242, 0x040404, 0x040404, 0x040404}));
}

TEST_F(LayersTest, VideosPlayTheSelectedFrameCutToTheTarget) {
    Layer32bpp& target = addLayer32("target", 2, 2, X);
    numbered32("film", 2, 7);  // 3 frames of 2 rows (4 pixels); the 7th row is never shown
    make("playVideo32bpp target film 3 constInt 4 constInt 32")->run(0);  // 4 % 3 = frame 1
    EXPECT_EQ(pixelsOf(target), (Pixels{4, 5, 6, 7}));
    make("playVideo32bpp target film 3 constInt -1 constInt 32")->run(0);  // the last frame
    EXPECT_EQ(pixelsOf(target), (Pixels{8, 9, 10, 11}));

    Layer32bpp& small = addLayer32("small", 3, 1, X);
    Layer8bpp& strip = addLayer8("strip", 4, 2);
    std::iota(strip.pixels, strip.pixels + 8, std::uint8_t{0});
    Palette& palette = addPalette("pal");
    std::iota(palette.colors.begin(), palette.colors.begin() + 8, 0x100u);
    make("playBitmapVideo32bpp small strip pal 2 constInt 1")->run(0);  // 4 pixels cut to 3
    EXPECT_EQ(pixelsOf(small), (Pixels{0x104, 0x105, 0x106}));

    EXPECT_EQ(errorOf([&] { make("playVideo32bpp target film 0 constInt 0 constInt 32"); }),
              "playVideo32bpp : numFrames must be at least 1, not 0");
}

TEST_F(LayersTest, CombinationLooksUpLightAndColour) {
    Layer32bpp& target = addLayer32("target", 3, 1, X);
    Layer8bpp& image = addLayer8("image", 2, 1, 255);
    image.pixels[0] = 5;
    addLayer8("light", 2, 1).pixels[1] = 255;
    numbered32("lut", 256, 256);
    make("combination32bpp target image light lut")->run(0);
    EXPECT_EQ(pixelsOf(target), (Pixels{5, 65535, X}));

    addLayer32("small", 255, 256);
    EXPECT_EQ(errorOf([&] { make("combination32bpp target image light small"); }),
              "combination32bpp : small is 255x256, a lut needs 65536 pixels");
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
