// Pattern transitions and the scan-line transitions, on small layers.
#include <gtest/gtest.h>

#include <set>

#include "FilterTestPictures.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

// A 4x2 target, its buffer and a pattern holding these greys in reading order.
class PatternTransition : public EffectTest {
protected:
    static constexpr std::uint8_t greys[8] = {0, 1, 100, 127, 128, 200, 254, 255};
    PatternTransition() {
        target_ = &addLayer32("dst", 4, 2);
        buffer_ = &addLayer32("buf", 4, 2);
        Layer8bpp& pattern = addLayer8("pat", 4, 2);
        for (int i = 0; i < 8; ++i) {
            target_->pixels[i] = 0x100 + i;
            buffer_->pixels[i] = 0x00FFFFFF - i;
            pattern.pixels[i] = greys[i];
        }
        Palette& palette = addPalette("pal");
        for (int i = 0; i < 256; ++i) palette.colors[i] = static_cast<std::uint32_t>(i) << 16;
    }
    // Runs the line at t and returns, per pixel, 'B' for the buffer's pixel, 'T' for the
    // target's untouched and '?' for anything else.
    std::string show(const std::string& line, float t) {
        for (int i = 0; i < 8; ++i) target_->pixels[i] = 0x100 + i;
        make(line)->run(t);
        std::string text;
        for (int i = 0; i < 8; ++i)
            text += target_->pixels[i] == buffer_->pixels[i] ? 'B' : target_->pixels[i] == 0x100u + i ? 'T' : '?';
        return text;
    }
    Layer32bpp* target_;
    Layer32bpp* buffer_;
};

TEST_F(PatternTransition, BoolSwitchesThePixelsUpToTheLevelsLowByte) {
    const std::string line = "patternTransitionBool32bpp dst buf pat";
    EXPECT_EQ(show(line, 0.0f), "BTTTTTTT");
    EXPECT_EQ(show(line, 0.5f), "BBBBBTTT");
    EXPECT_EQ(show(line, 0.999f), "BBBBBBBB");
    EXPECT_EQ(show(line, -0.5f), "BBBBBTTT");  // level -128, byte 128
    EXPECT_EQ(show(line, -0.01f), "BBBBBBBT");  // level -2, byte 254
}

TEST_F(PatternTransition, FromTimeOneTheWholeBufferIsCopied) {
    buffer_->pixels[0] = 0xAB000000;  // alpha byte included
    for (const char* line : {"patternTransitionBool32bpp dst buf pat", "patternTransitionAdd32bpp dst buf pat pal 3",
                             "patternTransitionAlpha32bpp dst buf pat"}) {
        EXPECT_EQ(show(line, 1.0f), "BBBBBBBB") << line;
        EXPECT_EQ(show(line, 7.5f), "BBBBBBBB") << line;
    }
}

TEST_F(PatternTransition, AddShowsAPaletteFrontAroundTheLevel) {
    make("patternTransitionAdd32bpp dst buf pat pal 2")->run(0.5f);  // level 128
    auto glow = [&](int k, std::uint32_t base) { return blendPixel(renduAdd, std::uint32_t(128 + k) << 16, base); };
    EXPECT_EQ(pixelsOf(*target_), (Pixels{buffer_->pixels[0], buffer_->pixels[1], buffer_->pixels[2],
                                          glow(-1, buffer_->pixels[3]), glow(0, 0x104), 0x105, 0x106, 0x107}));
}

TEST_F(PatternTransition, AddWithWidthZeroHasAOneLevelFrontOnTheTarget) {
    make("patternTransitionAdd32bpp dst buf pat pal 0")->run(0.5f);
    EXPECT_EQ(target_->pixels[3], buffer_->pixels[3]);
    EXPECT_EQ(target_->pixels[4], blendPixel(renduAdd, 128u << 16, 0x104));
    EXPECT_EQ(target_->pixels[5], 0x105u);
}

TEST_F(PatternTransition, NegativeTimeLeavesAddAndAlphaUnchanged) {
    EXPECT_EQ(show("patternTransitionAdd32bpp dst buf pat pal 5", -0.5f), "TTTTTTTT");
    EXPECT_EQ(show("patternTransitionAlpha32bpp dst buf pat", -0.5f), "TTTTTTTT");
    EXPECT_EQ(show("patternTransitionAlpha32bpp dst buf pat", 0.0f), "TTTTTTTT");  // grey 0 has k = 32
}

TEST_F(PatternTransition, AddFrontsWiderThanHalfThePaletteStayInsideIt) {
    Palette& palette = Repository::instance().aquireAs<Palette>("pal");
    palette.colors[0] = 0x000001;
    make("patternTransitionAdd32bpp dst buf pat pal 300")->run(0.999f);  // level 255
    // Grey 0 sits 255 levels behind the front: its entry is held at 0.
    EXPECT_EQ(target_->pixels[0], blendPixel(renduAdd, 0x000001, buffer_->pixels[0]));
}

TEST_F(PatternTransition, AlphaBlendsA32LevelFrontAndReadsNoWidth) {
    // The width on the line is not read, whatever it says.
    make("patternTransitionAlpha32bpp dst buf pat 7")->run(0.5f);  // level 128: front 96..128
    const Pixels& s = pixelsOf(*buffer_);
    EXPECT_EQ(pixelsOf(*target_), (Pixels{s[0], s[1], blendPixel(28, s[2], 0x102), blendPixel(1, s[3], 0x103),
                                          0x104, 0x105, 0x106, 0x107}));
    setPixels(*target_, {0x100, 0x101, 0x102, 0x103, 0x104, 0x105, 0x106, 0x107});
    make("patternTransitionAlpha32bpp dst buf pat")->run(0.999f);  // level 255: front 223..255
    EXPECT_EQ(target_->pixels[5], s[5]);
    EXPECT_EQ(target_->pixels[6], blendPixel(1, s[6], 0x106));
    EXPECT_EQ(target_->pixels[7], 0x107u);
}

TEST_F(PatternTransition, PatternAndBufferMustCoverTheTarget) {
    addLayer8("short", 4, 1);
    addLayer32("narrow", 3, 2);
    EXPECT_EQ(errorOf([&] { make("patternTransitionBool32bpp dst buf short"); }),
              "patternTransitionBool32bpp : pattern holds 4 pixels, the target needs 8");
    EXPECT_EQ(errorOf([&] { make("patternTransitionAlpha32bpp dst narrow pat"); }),
              "patternTransitionAlpha32bpp : buffer is 3x2, smaller than the target's 4x2");
    // A pattern of another shape but enough pixels is read with the target's row length.
    addLayer8("long", 8, 1);
    EXPECT_EQ(errorOf([&] { make("patternTransitionBool32bpp dst buf long"); }), "no error");
}

// Scan-line transitions: rows drawn as text, '.' for the target's 0, a letter per
// source column (a, b, c, ...).
class ScanLines : public EffectTest {
protected:
    ScanLines() {
        target_ = &addLayer32("dst", 8, 4);
        Layer32bpp& src = addLayer32("src", 8, 4);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 8; ++x) src.row(y)[x] = static_cast<std::uint32_t>('a' + x);
    }
    std::string rows() const {
        std::string text;
        for (int y = 0; y < 4; ++y) {
            if (y) text += '|';
            for (int x = 0; x < 8; ++x) {
                const std::uint32_t p = target_->row(y)[x];
                text += p == 0 ? '.' : static_cast<char>(p);
            }
        }
        return text;
    }
    std::string after(const std::string& line, float t) {
        std::fill_n(target_->pixels, 32, 0u);
        make(line)->run(t);
        return rows();
    }
    Layer32bpp* target_;
};

TEST_F(ScanLines, BrindleBandsArriveOneAfterAnotherFromAlternateSides) {
    const std::string line = "brindleBands32bpp dst src 2";
    EXPECT_EQ(after(line, 0.0f), "........|........|........|........");
    EXPECT_EQ(after(line, 0.25f), "abcd....|abcd....|........|........");
    EXPECT_EQ(after(line, 0.5f), "abcdefgh|abcdefgh|....efgh|....efgh");
    EXPECT_EQ(after(line, 1.0f), "abcdefgh|abcdefgh|abcdefgh|abcdefgh");
}

TEST_F(ScanLines, SkewtelSlidesRowsInFromTheRightOnASlant) {
    EXPECT_EQ(after("skewtel32bpp dst src constFloat 0", 0.5f), "....abcd|....abcd|....abcd|....abcd");
    EXPECT_EQ(after("skewtel32bpp dst src constFloat 1", 0.5f), "abcdefgh|..abcdef|....abcd|......ab");
    EXPECT_EQ(after("skewtel32bpp dst src constFloat 1", 1.0f), "abcdefgh|abcdefgh|abcdefgh|abcdefgh");
}

TEST_F(ScanLines, SkewtelFilterShearsRowsAboutTheMiddle) {
    EXPECT_EQ(after("skewtelFilter32bpp dst src constFloat 2", 0.0f), "cdefghab|bcdefgha|abcdefgh|habcdefg");
}

TEST_F(ScanLines, InterleavingBringsEvenRowsFromTheLeftAndOddFromTheRight) {
    EXPECT_EQ(after("interleaving32bpp dst src", 0.0f), "........|........|........|........");
    EXPECT_EQ(after("interleaving32bpp dst src", 0.5f), "efgh....|....abcd|efgh....|....abcd");
    EXPECT_EQ(after("interleaving32bpp dst src", 1.0f), "abcdefgh|abcdefgh|abcdefgh|abcdefgh");
}

TEST_F(ScanLines, NoiseLinesJitterRowsAndLightSomeOfThem) {
    EXPECT_EQ(after("noiseLines32bpp dst src constInt 0", 0.0f), "abcdefgh|abcdefgh|abcdefgh|abcdefgh");
    Layer32bpp& big = addLayer32("big", 64, 64);
    Layer32bpp& picture = addLayer32("picture", 64, 64);
    fillCoordinates(picture);
    make("noiseLines32bpp big picture constInt 255")->run(0.0f);
    // Each row is the picture's row turned by at most 31 pixels, every channel at least
    // as bright (the noise is added); most rows are lit.
    auto rowMatches = [&](int y, int shift, bool& brighter) {
        brighter = false;
        for (int x = 0; x < 64; ++x) {
            const std::uint32_t was = picture.row(y)[(x - shift + 64) % 64], now = big.row(y)[x];
            for (int c = 0; c < 24; c += 8)
                if (((now >> c) & 0xFF) < ((was >> c) & 0xFF)) return false;
            brighter |= now != was;
        }
        return true;
    };
    int lit = 0;
    for (int y = 0; y < 64; ++y) {
        bool matched = false, brighter = false;
        for (int shift = -31; shift <= 31 && !matched; ++shift) matched = rowMatches(y, shift, brighter);
        ASSERT_TRUE(matched) << y;
        lit += brighter;
    }
    EXPECT_GT(lit, 32);  // a chance of 255 / 256 per row
}

TEST_F(ScanLines, EcouleImageRunsEachColumnDownByItsOwnDistance) {
    EXPECT_EQ(after("ecouleImage32bpp dst src constFloat 1", 0.0f), "abcdefgh|abcdefgh|abcdefgh|abcdefgh");
    Layer32bpp& big = addLayer32("big", 64, 100);
    Layer32bpp& picture = addLayer32("picture", 64, 100);
    fillCoordinates(picture);
    make("ecouleImage32bpp big picture constFloat 0.4")->run(1.0f);  // 40 pixels for the fastest
    std::set<int> drops;
    for (int x = 0; x < 64; ++x) {
        const int drop = 100 - static_cast<int>(big.row(99)[x] >> 8) - 1;
        ASSERT_TRUE(drop >= 20 && drop <= 40) << x;
        for (int y = 0; y < 100; ++y)
            ASSERT_EQ(big.row(y)[x], y < drop ? 0u : static_cast<std::uint32_t>((y - drop) << 8 | x)) << x << "," << y;
        drops.insert(drop);
    }
    EXPECT_GT(drops.size(), 3u);  // the columns drip unevenly
}

}  // namespace
}  // namespace vz::test
