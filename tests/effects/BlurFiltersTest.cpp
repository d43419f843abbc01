// The four-neighbour blur, the feedback zooms and the designed filters, built from
// script lines as the timeline builds them.
#include <gtest/gtest.h>

#include "FilterTestPictures.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Pixels = std::vector<std::uint32_t>;
using Filter = EffectTest;

TEST_F(Filter, FourNeighbourBlurSpreadsAWhitePixelAndLeavesTheBorder) {
    Layer32bpp& src = addLayer32("src", 5, 5);
    Layer32bpp& dst = addLayer32("dst", 5, 5, 0x11111111);
    src.row(2)[2] = 0xFFFFFFFF;
    make("kernelBlurFilter32bpp dst src")->run(0.0f);
    const std::uint32_t b = 0x11111111, q = grey(63);
    EXPECT_EQ(pixelsOf(dst), (Pixels{b, b, b, b, b,  //
                                     b, 0, q, 0, b,  //
                                     b, q, 0, q, b,  //
                                     b, 0, q, 0, b,  //
                                     b, b, b, b, b}));
}

TEST_F(Filter, FourNeighbourBlurRefusesOneLayerForBoth) {
    addLayer32("screen", 5, 5);
    EXPECT_EQ(errorOf([&] { make("kernelBlurFilter32bpp screen screen"); }),
              "kernelBlurFilter32bpp : target and source must be different layers");
}

TEST_F(Filter, ZoomScalesTheScreenAboutItsCentreThroughTheRendu) {
    Layer32bpp& screen = addLayer32("screen", 8, 8);
    fillRandom(screen, 3);
    const Pixels noise = pixelsOf(screen);
    make("zoom32bpp screen constFloat 1 constInt 32")->run(0.0f);
    EXPECT_EQ(pixelsOf(screen), noise);

    // Twice: drawn 16x16 from corner (-4, -4), target pixel i shows source pixel 2 + i / 2.
    // Half: every other pixel, in the middle only, here subtracted from the screen.
    fillCoordinates(screen);
    const Pixels before = pixelsOf(screen);
    make("zoom32bpp screen constFloat 2 constInt 32")->run(0.0f);
    Layer32bpp& half = addLayer32("half", 8, 8);
    setPixels(half, before);
    make("zoom32bpp half constFloat 0.5 constInt 34")->run(0.0f);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            ASSERT_EQ(screen.row(y)[x], static_cast<std::uint32_t>((2 + y / 2) << 8 | (2 + x / 2))) << x << "," << y;
            const std::uint32_t old = before[y * 8 + x], shown = static_cast<std::uint32_t>(2 * (y - 2) << 8 | 2 * (x - 2));
            const bool inside = x >= 2 && x < 6 && y >= 2 && y < 6;
            ASSERT_EQ(half.row(y)[x], inside ? blendPixel(renduSub, shown, old) : old) << x << "," << y;
        }
}

TEST_F(Filter, ZoomBlurAtScaleOneBlursInsideAndKeepsTheBorder) {
    Layer32bpp& screen = addLayer32("screen", 6, 6, 0x00202020);
    screen.row(2)[2] = grey(255);
    make("zoomBlur32bpp screen constVector2 0 0 constFloat 1")->run(0.0f);
    // Each inner pixel becomes the mean of its four neighbours, not itself.
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x) {
            const bool inner = x > 0 && x < 5 && y > 0 && y < 5, nextToWhite = std::abs(x - 2) + std::abs(y - 2) == 1;
            ASSERT_EQ(screen.row(y)[x], inner ? grey(nextToWhite ? (0x20 * 3 + 0xFC) >> 2 : 0x20) : 0x00202020u) << x << "," << y;
        }
}

TEST_F(Filter, RadialBlurStreaksOutwardsFromTheCentre) {
    Layer32bpp& screen = addLayer32("screen", 5, 1);
    setPixels(screen, {1, 2, 3, 4, 5});
    // Centre column 2; halfway inward, fully replaced: each pixel takes the already
    // streaked pixel between it and the centre.
    make("radialBlurFilter32bpp screen constVector2 0 0 constInt 128 constInt 32")->run(0.0f);
    EXPECT_EQ(pixelsOf(screen), (Pixels{2, 2, 3, 3, 3}));
}

TEST_F(Filter, FuzzifyWithEqualBoundsMovesThePictureAndHoldsItsEdge) {
    Layer32bpp& src = addLayer32("src", 4, 3);
    Layer32bpp& dst = addLayer32("dst", 4, 3);
    fillCoordinates(src);
    make("fuzzifyFilter32bpp dst src constFloat 1 constFloat 1")->run(0.0f);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
            ASSERT_EQ(dst.row(y)[x], static_cast<std::uint32_t>(std::min(y + 1, 2) << 8 | std::min(x + 1, 3)));
}

TEST_F(Filter, FuzzifyNoiseStaysWithinItsBoundsAndRepeatsWithTheSeed) {
    Layer32bpp& src = addLayer32("src", 40, 30);
    Layer32bpp& dst = addLayer32("dst", 40, 30);
    fillCoordinates(src);
    make("fuzzifyFilter32bpp dst src constFloat -2 constFloat 3")->run(0.0f);
    const Pixels first = pixelsOf(dst);
    int moved = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) {
            const int dx = static_cast<int>(dst.row(y)[x] & 0xFF) - x, dy = static_cast<int>(dst.row(y)[x] >> 8) - y;
            ASSERT_TRUE(dx >= -2 && dx <= 3 && dy >= -2 && dy <= 3) << x << "," << y;
            moved += dx != 0 || dy != 0;
        }
    EXPECT_GT(moved, 0);
    resetRandomSeeds();
    make("fuzzifyFilter32bpp dst src constFloat -2 constFloat 3")->run(0.0f);
    EXPECT_EQ(pixelsOf(dst), first);
}

TEST_F(Filter, AntialiasingSoftensOnlyContrastedPixels) {
    Layer32bpp& src = addLayer32("src", 5, 5);
    Layer32bpp& dst = addLayer32("dst", 5, 5, 0x77777777);
    src.row(2)[2] = grey(255);
    make("antialiasing32bpp dst src")->run(0.0f);
    const std::uint32_t c = grey(127), n = grey(31);
    EXPECT_EQ(pixelsOf(dst), (Pixels{0, 0, 0, 0, 0,  //
                                     0, 0, n, 0, 0,  //
                                     0, n, c, n, 0,  //
                                     0, 0, n, 0, 0,  //
                                     0, 0, 0, 0, 0}));
    // A gentle ramp has no edge to soften.
    for (int i = 0; i < 25; ++i) src.pixels[i] = grey(static_cast<std::uint32_t>(i * 4));
    make("antialiasing32bpp dst src")->run(0.0f);
    EXPECT_EQ(pixelsOf(dst), pixelsOf(src));
}

TEST_F(Filter, HighlightDrawsTheStarCentredOnWhitePixels) {
    Layer32bpp& screen = addLayer32("screen", 9, 9);
    Layer32bpp& star = addLayer32("star", 3, 3);
    const std::uint32_t s = 0x0000FF;
    setPixels(star, {0, s, 0, s, s, s, 0, s, 0});
    screen.row(4)[4] = 0xFFFFFFFF;
    screen.row(0)[8] = 0x00FFFFFE;  // nearly white: no star
    make("highlightFilter32bpp screen star constInt 32")->run(0.0f);
    Pixels expected(81, 0);
    for (int i : {3 * 9 + 4, 4 * 9 + 3, 4 * 9 + 4, 4 * 9 + 5, 5 * 9 + 4}) expected[i] = s;
    expected[8] = 0x00FFFFFE;
    EXPECT_EQ(pixelsOf(screen), expected);
}

TEST_F(Filter, ParticleBlurPullsSamplesTowardsTheCentre) {
    Layer32bpp& src = addLayer32("src", 64, 48);
    Layer32bpp& dst = addLayer32("dst", 64, 48);
    fillCoordinates(src);
    make("particleBlurFilter32bpp dst src constInt 0")->run(0.0f);
    EXPECT_EQ(pixelsOf(dst), pixelsOf(src));
    make("particleBlurFilter32bpp dst src constInt 256")->run(0.0f);
    int fromCentre = 0;
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x) {
            const int sx = static_cast<int>(dst.row(y)[x] & 0xFF), sy = static_cast<int>(dst.row(y)[x] >> 8);
            // On the same side of the centre (32, 24) and no further from it.
            ASSERT_TRUE((sx - 32) * (x - 32) >= 0 && std::abs(sx - 32) <= std::abs(x - 32)) << x << "," << y;
            ASSERT_TRUE((sy - 24) * (y - 24) >= 0 && std::abs(sy - 24) <= std::abs(y - 24)) << x << "," << y;
            fromCentre += sx == 32 && sy == 24;
        }
    // The fastest of sixteen speeds reaches the centre: about one pixel in sixteen.
    EXPECT_GT(fromCentre, 64 * 48 / 32);
    EXPECT_LT(fromCentre, 64 * 48 / 8);
}

TEST_F(Filter, PixelizeBlockSizeFollowsThePatternGrey) {
    Layer32bpp& image = addLayer32("image", 8, 4);
    Layer32bpp& dst = addLayer32("dst", 8, 4);
    Layer8bpp& pattern = addLayer8("pattern", 8, 4);
    fillCoordinates(image);
    for (int y = 0; y < 4; ++y)
        for (int x = 4; x < 8; ++x) pattern.row(y)[x] = 32;  // blocks of 2 on the right half
    make("pixelizeFilter32bpp dst image pattern")->run(0.0f);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x) {
            const int sx = x < 4 ? x : x & ~1, sy = x < 4 ? y : y & ~1;
            ASSERT_EQ(dst.row(y)[x], static_cast<std::uint32_t>(sy << 8 | sx)) << x << "," << y;
        }
    addLayer8("small", 8, 3);
    EXPECT_EQ(errorOf([&] { make("pixelizeFilter32bpp dst image small"); }),
              "pixelizeFilter32bpp : pattern is 8x3, the target is 8x4");
}

TEST_F(Filter, AddCornersFillsOutsideQuarterCircles) {
    Layer32bpp& screen = addLayer32("screen", 12, 10, 0x00FFFFFF);
    addColor("back", 0x123456);
    make("addCorners32bpp screen back 5")->run(0.0f);
    // Pixels filled per corner row, from the edge: 3, 1, 1, then none.
    const int filled[10] = {3, 1, 1, 0, 0, 0, 0, 1, 1, 3};
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 12; ++x)
            ASSERT_EQ(screen.row(y)[x], x < filled[y] || x >= 12 - filled[y] ? 0x123456u : 0x00FFFFFFu) << x << "," << y;
}

TEST_F(Filter, ScaleDownQuadShowsTheHalvedScreenFourTimes) {
    Layer32bpp& screen = addLayer32("screen", 4, 4);
    const std::uint32_t a = grey(0x40), b = grey(0x80), c = grey(0xC0), d = grey(0x10);
    setPixels(screen, {a, a, b, b, a, a, b, b, c, c, d, d, c, c, d, d});
    make("scaleDownQuad32bpp screen")->run(0.0f);
    EXPECT_EQ(pixelsOf(screen), (Pixels{a, b, a, b, c, d, c, d, a, b, a, b, c, d, c, d}));
}

}  // namespace
}  // namespace vz::test
