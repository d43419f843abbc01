#include "effects/filters/BoxBlur.hpp"

#include <gtest/gtest.h>

#include "FilterTestPictures.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

class BoxBlur : public EffectTest {
protected:
    Layer32bpp& source(int w, int h, const Pixels& values) {
        Layer32bpp& layer = addLayer32("src", w, h);
        setPixels(layer, values);
        return layer;
    }
    Pixels blur(const char* keyword, int w, int h, int n) {
        Repository::instance().sub("dst");  // a fresh target for every blur
        Layer32bpp& dst = addLayer32("dst", w, h, 0xDEADBEEF);
        make(std::string(keyword) + " dst src constInt " + std::to_string(n))->run(0.0f);
        return pixelsOf(dst);
    }
};

TEST_F(BoxBlur, RadiusOneMeansTheLeftNeighbourAndSpansWrapAroundTheRow) {
    source(4, 1, {grey(0), grey(200), grey(100), grey(50)});
    // Pixel 0's left neighbour is the row's last pixel.
    EXPECT_EQ(blur("hBlurFilter32bpp", 4, 1, 1), (Pixels{grey(25), grey(100), grey(150), grey(75)}));
    Repository::instance().sub("src");
    source(8, 1, {grey(255), grey(255), 0, 0, 0, 0, 0, 0});
    // Spans x-2 .. x+1: the white left end reaches the right end's last pixel.
    EXPECT_EQ(blur("hBlurFilter32bpp", 8, 1, 2), (Pixels{grey(127), grey(127), grey(127), grey(63), 0, 0, 0, grey(63)}));
}

TEST_F(BoxBlur, WhiteStaysWhiteUpToTheLargestRadiusAndAlphaIsCleared) {
    source(130, 2, Pixels(260, 0xFFFFFFFF));
    EXPECT_EQ(blur("hBlurFilter32bpp", 130, 2, 3), Pixels(260, 0x00FFFFFF));
    EXPECT_EQ(blur("hBlurFilter32bpp", 130, 2, 64), Pixels(260, 0x00FFFFFF));
}

TEST_F(BoxBlur, VerticalFormWalksColumnsTopToBottomWithWrap) {
    // Two columns: the second is the first's mirror, so rows cannot be mistaken for columns.
    source(2, 4, {grey(0), grey(50), grey(200), grey(100), grey(100), grey(200), grey(50), grey(0)});
    EXPECT_EQ(blur("vBlurFilter32bpp", 2, 4, 1),
              (Pixels{grey(25), grey(25), grey(100), grey(75), grey(150), grey(150), grey(75), grey(100)}));
}

TEST_F(BoxBlur, RadiusAtOrBelowZeroCopiesTheSourceUnchanged) {
    source(3, 1, {0x12345678, 0x9ABCDEF0, 0x0F0F0F0F});
    EXPECT_EQ(blur("hBlurFilter32bpp", 3, 1, 0), (Pixels{0x12345678, 0x9ABCDEF0, 0x0F0F0F0F}));
    EXPECT_EQ(blur("vBlurFilter32bpp", 3, 1, -5), (Pixels{0x12345678, 0x9ABCDEF0, 0x0F0F0F0F}));
}

TEST_F(BoxBlur, OversizedRadiiAreCutToTheTableAndToHalfTheLine) {
    Layer32bpp& src = addLayer32("src", 150, 3);
    fillRandom(src, 7);
    EXPECT_EQ(blur("hBlurFilter32bpp", 150, 3, 1000), blur("hBlurFilter32bpp", 150, 3, 64));
    // A column of 3 pixels takes radius 1 whatever is asked.
    EXPECT_EQ(blur("vBlurFilter32bpp", 150, 3, 9), blur("vBlurFilter32bpp", 150, 3, 1));
}

TEST_F(BoxBlur, BlurringALayerOntoItselfMatchesBlurringACopy) {
    Layer32bpp& src = addLayer32("src", 23, 17);
    fillRandom(src, 11);
    for (const char* keyword : {"hBlurFilter32bpp", "vBlurFilter32bpp"}) {
        Layer32bpp& same = addLayer32(std::string("same") + keyword, 23, 17);
        setPixels(same, pixelsOf(src));
        make(std::string(keyword) + " same" + keyword + " same" + keyword + " constInt 5")->run(0.0f);
        EXPECT_EQ(pixelsOf(same), blur(keyword, 23, 17, 5)) << keyword;
    }
}

TEST_F(BoxBlur, SizesAreCheckedAtConstruction) {
    addLayer32("dst", 4, 4);
    addLayer32("src", 4, 5);
    EXPECT_EQ(errorOf([&] { make("hBlurFilter32bpp dst src constInt 2"); }),
              "hBlurFilter32bpp : source is 4x5, the target is 4x4");
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

}  // namespace
}  // namespace vz::test
