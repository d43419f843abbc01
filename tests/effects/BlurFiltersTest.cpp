// The box and four-neighbour blurs, the feedback zooms and the designed filters, built
// from script lines as the timeline builds them.
#include <tuple>

#include "effects/filters/BoxBlur.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Filter : public EffectTest {
protected:
    Layer32bpp& source(int w, int h, const Pixels& values) {
        show.repository.sub("src");
        Layer32bpp& layer = addLayer32("src", w, h);
        setPixels(layer, values);
        return layer;
    }
    Pixels blur(const char* keyword, int w, int h, int n) {
        show.repository.sub("dst");  // a fresh target for every blur
        Layer32bpp& dst = addLayer32("dst", w, h, 0xDEADBEEF);
        make(std::string(keyword) + " dst src constInt " + std::to_string(n))->run(0.0f);
        return pixelsOf(dst);
    }
};

TEST_F(Filter, BoxBlurRadiusOneMeansTheLeftNeighbourAndSpansWrapAroundTheRow) {
    source(4, 1, {grey(0), grey(200), grey(100), grey(50)});
    // Pixel 0's left neighbour is the row's last pixel.
    EXPECT_EQ(blur("hBlurFilter32bpp", 4, 1, 1), (Pixels{grey(25), grey(100), grey(150), grey(75)}));
    source(8, 1, {grey(255), grey(255), 0, 0, 0, 0, 0, 0});
    // Spans x-2 .. x+1: the white left end reaches the right end's last pixel.
    EXPECT_EQ(blur("hBlurFilter32bpp", 8, 1, 2),
              (Pixels{grey(127), grey(127), grey(127), grey(63), 0, 0, 0, grey(63)}));
    // The vertical form walks columns; the second is the first's mirror, so rows cannot be
    // mistaken for columns.
    source(2, 4, {grey(0), grey(50), grey(200), grey(100), grey(100), grey(200), grey(50), grey(0)});
    EXPECT_EQ(blur("vBlurFilter32bpp", 2, 4, 1),
              (Pixels{grey(25), grey(25), grey(100), grey(75), grey(150), grey(150), grey(75), grey(100)}));
}

TEST_F(Filter, BoxBlurRadiiAreLimitedWhiteStaysWhiteAndAlphaIsCleared) {
    source(130, 2, Pixels(260, 0xFFFFFFFF));
    EXPECT_EQ(blur("hBlurFilter32bpp", 130, 2, 3), Pixels(260, 0x00FFFFFF));
    EXPECT_EQ(blur("hBlurFilter32bpp", 130, 2, 64), Pixels(260, 0x00FFFFFF));
    // At or below zero: a copy.
    source(3, 1, {0x12345678, 0x9ABCDEF0, 0x0F0F0F0F});
    EXPECT_EQ(blur("hBlurFilter32bpp", 3, 1, 0), (Pixels{0x12345678, 0x9ABCDEF0, 0x0F0F0F0F}));
    EXPECT_EQ(blur("vBlurFilter32bpp", 3, 1, -5), (Pixels{0x12345678, 0x9ABCDEF0, 0x0F0F0F0F}));
    // Cut to the table, and to half the line: a column of 3 pixels takes radius 1.
    fillRandom(source(150, 3, {}), 7);
    EXPECT_EQ(blur("hBlurFilter32bpp", 150, 3, 1000), blur("hBlurFilter32bpp", 150, 3, 64));
    EXPECT_EQ(blur("vBlurFilter32bpp", 150, 3, 9), blur("vBlurFilter32bpp", 150, 3, 1));
}

TEST_F(Filter, BoxBlurOfALayerOntoItselfMatchesBlurringACopy) {
    Layer32bpp& src = source(23, 17, {});
    fillRandom(src, 11);
    for (const std::string keyword : {"hBlurFilter32bpp", "vBlurFilter32bpp"}) {
        Layer32bpp& same = addLayer32("same" + keyword, 23, 17);
        setPixels(same, pixelsOf(src));
        make(keyword + " same" + keyword + " same" + keyword + " constInt 5")->run(0.0f);
        EXPECT_EQ(pixelsOf(same), blur(keyword.c_str(), 23, 17, 5)) << keyword;
    }
}

TEST(BoxBlurKernels, ColumnSweepEqualsThePlainColumnWalk) {
    std::mt19937 random(5);
    BoxBlurTable table;
    for (auto [w, h, n] : {std::tuple{37, 29, 1}, {37, 29, 14}, {5, 128, 64}, {64, 9, 4}, {1, 2, 1}}) {
        Pixels src(static_cast<std::size_t>(w) * h);
        for (auto& p : src) p = random();
        table.build(n);
        Pixels swept(src.size()), walked(src.size());
        std::vector<std::int32_t> sums(3 * static_cast<std::size_t>(w));
        boxBlurColumns(swept.data(), src.data(), w, h, n, table.entries(), sums.data());
        for (int x = 0; x < w; ++x) boxBlurLine(walked.data() + x, src.data() + x, h, w, n, table.entries());
        EXPECT_EQ(swept, walked) << w << "x" << h << " n=" << n;
    }
}

TEST_F(Filter, FourNeighbourBlurSpreadsAWhitePixelAndLeavesTheBorder) {
    addLayer32("src", 5, 5).row(2)[2] = 0xFFFFFFFF;
    Layer32bpp& dst = addLayer32("dst", 5, 5, 0x11111111);
    make("kernelBlurFilter32bpp dst src")->run(0.0f);
    const std::uint32_t b = 0x11111111, q = grey(63);
    EXPECT_EQ(pixelsOf(dst), (Pixels{b, b, b, b, b,  //
                                     b, 0, q, 0, b,  //
                                     b, q, 0, q, b,  //
                                     b, 0, q, 0, b,  //
                                     b, b, b, b, b}));
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
            const std::uint32_t old = before[y * 8 + x],
                                shown = static_cast<std::uint32_t>(2 * (y - 2) << 8 | 2 * (x - 2));
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
            ASSERT_EQ(screen.row(y)[x], inner ? grey(nextToWhite ? (0x20 * 3 + 0xFC) >> 2 : 0x20) : 0x00202020u)
                << x << "," << y;
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
    fillCoordinates(addLayer32("src", 4, 3));
    Layer32bpp& dst = addLayer32("dst", 4, 3);
    make("fuzzifyFilter32bpp dst src constFloat 1 constFloat 1")->run(0.0f);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
            ASSERT_EQ(dst.row(y)[x], static_cast<std::uint32_t>(std::min(y + 1, 2) << 8 | std::min(x + 1, 3)));
}

TEST_F(Filter, FuzzifyNoiseIsPinnedByItsSeed) {
    fillCoordinates(addLayer32("src", 40, 30));
    Layer32bpp& dst = addLayer32("dst", 40, 30);
    make("fuzzifyFilter32bpp dst src constFloat -2 constFloat 3")->run(0.0f);
    EXPECT_EQ(checksumOf(dst), 729360054048001600ull);
}

TEST_F(Filter, ParticleBlurCopiesAtSpeedZeroAndIsPinnedByItsSeed) {
    Layer32bpp& src = addLayer32("src", 64, 48);
    Layer32bpp& dst = addLayer32("dst", 64, 48);
    fillCoordinates(src);
    make("particleBlurFilter32bpp dst src constInt 0")->run(0.0f);
    EXPECT_EQ(pixelsOf(dst), pixelsOf(src));
    make("particleBlurFilter32bpp dst src constInt 256")->run(0.0f);
    EXPECT_EQ(checksumOf(dst), 17034432842549839795ull);
}

TEST_F(Filter, HighlightDrawsTheStarCentredOnWhitePixels) {
    Layer32bpp& screen = addLayer32("screen", 9, 9);
    const std::uint32_t s = 0x0000FF;
    setPixels(addLayer32("star", 3, 3), {0, s, 0, s, s, s, 0, s, 0});
    screen.row(4)[4] = 0xFFFFFFFF;
    screen.row(0)[8] = 0x00FFFFFE;  // nearly white: no star
    make("highlightFilter32bpp screen star constInt 32")->run(0.0f);
    Pixels expected(81, 0);
    for (int i : {3 * 9 + 4, 4 * 9 + 3, 4 * 9 + 4, 4 * 9 + 5, 5 * 9 + 4}) expected[i] = s;
    expected[8] = 0x00FFFFFE;
    EXPECT_EQ(pixelsOf(screen), expected);
}

TEST_F(Filter, PixelizeBlockSizeFollowsThePatternGrey) {
    fillCoordinates(addLayer32("image", 8, 4));
    Layer32bpp& dst = addLayer32("dst", 8, 4);
    Layer8bpp& pattern = addLayer8("pattern", 8, 4);
    for (int y = 0; y < 4; ++y) std::fill_n(pattern.row(y) + 4, 4, 32);  // blocks of 2 on the right half
    make("pixelizeFilter32bpp dst image pattern")->run(0.0f);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x) {
            const int sx = x < 4 ? x : x & ~1, sy = x < 4 ? y : y & ~1;
            ASSERT_EQ(dst.row(y)[x], static_cast<std::uint32_t>(sy << 8 | sx)) << x << "," << y;
        }
}

TEST_F(Filter, AddCornersFillsOutsideQuarterCircles) {
    Layer32bpp& screen = addLayer32("screen", 12, 10, 0x00FFFFFF);
    addColor("back", 0x123456);
    make("addCorners32bpp screen back 5")->run(0.0f);
    // Pixels filled per corner row, from the edge: 3, 1, 1, then none.
    const int filled[10] = {3, 1, 1, 0, 0, 0, 0, 1, 1, 3};
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 12; ++x)
            ASSERT_EQ(screen.row(y)[x], x < filled[y] || x >= 12 - filled[y] ? 0x123456u : 0x00FFFFFFu)
                << x << "," << y;
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
