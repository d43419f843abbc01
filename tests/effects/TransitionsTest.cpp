// Pattern transitions and the scan-line transitions, on small layers.
#include <set>

#include "effects/rendu/BlendOperators.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

// A 4x2 target, its buffer and a pattern holding these greys in reading order.
class PatternTransition : public EffectTest {
protected:
    PatternTransition() : target_(addLayer32("dst", 4, 2)), buffer_(addLayer32("buf", 4, 2)) {
        setPixels(buffer_, {0xFFFFFF, 0xFFFFFE, 0xFFFFFD, 0xFFFFFC, 0xFFFFFB, 0xFFFFFA, 0xFFFFF9, 0xFFFFF8});
        const std::uint8_t greys[8] = {0, 1, 100, 127, 128, 200, 254, 255};
        std::copy(greys, greys + 8, addLayer8("pat", 4, 2).pixels);
        Palette& palette = addPalette("pal");
        for (int i = 0; i < 256; ++i) palette.colors[i] = static_cast<std::uint32_t>(i) << 16;
        reset();
    }
    void reset() { setPixels(target_, {0x100, 0x101, 0x102, 0x103, 0x104, 0x105, 0x106, 0x107}); }
    // Runs the line at t and returns, per pixel, 'B' for the buffer's pixel, 'T' for the
    // target's untouched and '?' for anything else.
    std::string reveal(const std::string& line, float t) {
        reset();
        make(line)->run(t);
        std::string text;
        for (int i = 0; i < 8; ++i)
            text += target_.pixels[i] == buffer_.pixels[i] ? 'B' : target_.pixels[i] == 0x100u + i ? 'T' : '?';
        return text;
    }
    Layer32bpp& target_;
    Layer32bpp& buffer_;
};

TEST_F(PatternTransition, WhichPixelsTakeTheBufferFromStartToEnd) {
    buffer_.pixels[0] = 0xAB000000;  // from t = 1 the alpha byte is copied too
    const std::string plain = "patternTransitionBool32bpp dst buf pat",
                      add = "patternTransitionAdd32bpp dst buf pat pal 3",
                      alpha = "patternTransitionAlpha32bpp dst buf pat";
    const std::tuple<std::string, float, const char*> cases[] = {
        {plain, 0.0f, "BTTTTTTT"},   {plain, 0.5f, "BBBBBTTT"},  {plain, 0.999f, "BBBBBBBB"},
        {plain, -0.5f, "BBBBBTTT"},                                                          // level -128, byte 128
        {plain, -0.01f, "BBBBBBBT"},                                                         // level -2, byte 254
        {add, -0.5f, "TTTTTTTT"},    {alpha, -0.5f, "TTTTTTTT"}, {alpha, 0.0f, "TTTTTTTT"},  // grey 0 has k = 32
        {plain, 1.0f, "BBBBBBBB"},   {add, 1.0f, "BBBBBBBB"},    {alpha, 1.0f, "BBBBBBBB"},
        {alpha, 7.5f, "BBBBBBBB"}};
    for (const auto& [line, t, shown] : cases) EXPECT_EQ(reveal(line, t), shown) << line << " at " << t;
}

TEST_F(PatternTransition, AddShowsAPaletteFrontAroundTheLevel) {
    const Pixels s = pixelsOf(buffer_);
    auto glow = [&](int k, std::uint32_t base) { return blendPixel(renduAdd, std::uint32_t(128 + k) << 16, base); };
    make("patternTransitionAdd32bpp dst buf pat pal 2")->run(0.5f);  // level 128
    EXPECT_EQ(pixelsOf(target_), (Pixels{s[0], s[1], s[2], glow(-1, s[3]), glow(0, 0x104), 0x105, 0x106, 0x107}));
    // Width 0: a one-level front on the target.
    reset();
    make("patternTransitionAdd32bpp dst buf pat pal 0")->run(0.5f);
    EXPECT_EQ(pixelsOf(target_), (Pixels{s[0], s[1], s[2], s[3], glow(0, 0x104), 0x105, 0x106, 0x107}));
    // Wider than half the palette: grey 0 sits 255 levels behind the front, its entry held at 0.
    show.repository.aquireAs<Palette>("pal").colors[0] = 0x000001;
    make("patternTransitionAdd32bpp dst buf pat pal 300")->run(0.999f);  // level 255
    EXPECT_EQ(target_.pixels[0], blendPixel(renduAdd, 0x000001, s[0]));
}

TEST_F(PatternTransition, AlphaBlendsA32LevelFrontAndReadsNoWidth) {
    // The width on the line is not read, whatever it says.
    make("patternTransitionAlpha32bpp dst buf pat 7")->run(0.5f);  // level 128: front 96..128
    const Pixels& s = pixelsOf(buffer_);
    EXPECT_EQ(pixelsOf(target_), (Pixels{s[0], s[1], blendPixel(28, s[2], 0x102), blendPixel(1, s[3], 0x103), 0x104,
                                         0x105, 0x106, 0x107}));
    reset();
    make("patternTransitionAlpha32bpp dst buf pat")->run(0.999f);  // level 255: front 223..255
    EXPECT_EQ(pixelsOf(target_), (Pixels{s[0], s[1], s[2], s[3], s[4], s[5], blendPixel(1, s[6], 0x106), 0x107}));
}

// Scan-line transitions: rows drawn as text, '.' for the target's 0, a letter per
// source column (a, b, c, ...).
class ScanLines : public EffectTest {
protected:
    ScanLines() : target_(addLayer32("dst", 8, 4)) {
        Layer32bpp& src = addLayer32("src", 8, 4);
        for (int i = 0; i < 32; ++i) src.pixels[i] = static_cast<std::uint32_t>('a' + i % 8);
    }
    std::string after(const std::string& line, float t) {
        std::fill_n(target_.pixels, 32, 0u);
        make(line)->run(t);
        return textOf(target_, [](std::uint32_t p) { return p ? p : '.'; });
    }
    Layer32bpp& target_;
};

TEST_F(ScanLines, RowsOfEachScanLineTransition) {
    const std::string brindle = "brindleBands32bpp dst src 2", interleaving = "interleaving32bpp dst src";
    const std::tuple<std::string, float, const char*> cases[] = {
        // Bands of 2 rows arrive one after another from alternate sides.
        {brindle, 0.0f, "........|........|........|........"},
        {brindle, 0.25f, "abcd....|abcd....|........|........"},
        {brindle, 0.5f, "abcdefgh|abcdefgh|....efgh|....efgh"},
        {brindle, 1.0f, "abcdefgh|abcdefgh|abcdefgh|abcdefgh"},
        // Rows slide in from the right, on a slant; the filter shears about the middle.
        {"skewtel32bpp dst src constFloat 0", 0.5f, "....abcd|....abcd|....abcd|....abcd"},
        {"skewtel32bpp dst src constFloat 1", 0.5f, "abcdefgh|..abcdef|....abcd|......ab"},
        {"skewtel32bpp dst src constFloat 1", 1.0f, "abcdefgh|abcdefgh|abcdefgh|abcdefgh"},
        {"skewtelFilter32bpp dst src constFloat 2", 0.0f, "cdefghab|bcdefgha|abcdefgh|habcdefg"},
        // Even rows come from the left, odd rows from the right.
        {interleaving, 0.0f, "........|........|........|........"},
        {interleaving, 0.5f, "efgh....|....abcd|efgh....|....abcd"},
        {interleaving, 1.0f, "abcdefgh|abcdefgh|abcdefgh|abcdefgh"},
        {"noiseLines32bpp dst src constInt 0", 0.0f, "abcdefgh|abcdefgh|abcdefgh|abcdefgh"},
        {"ecouleImage32bpp dst src constFloat 1", 0.0f, "abcdefgh|abcdefgh|abcdefgh|abcdefgh"}};
    for (const auto& [line, t, shown] : cases) EXPECT_EQ(after(line, t), shown) << line << " at " << t;
}

TEST_F(ScanLines, NoiseLinesArePinnedByTheirSeed) {
    Layer32bpp& big = addLayer32("big", 64, 64);
    fillCoordinates(addLayer32("picture", 64, 64));
    make("noiseLines32bpp big picture constInt 255")->run(0.0f);
    EXPECT_EQ(checksumOf(big), 16201836393550315624ull);
}

TEST_F(ScanLines, EcouleImageRunsEachColumnDownByItsOwnDistance) {
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
