#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/warpers/TiledTexture.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Warpers : public EffectTest {
protected:
    // A 16 x 16 texture whose texel names itself: row << 8 | column.
    Layer32bpp& addCoordinateTexture(const std::string& name) {
        Layer32bpp& texture = addLayer32(name, 16, 16);
        fillCoordinates(texture);
        return texture;
    }
};

TEST(TextureSpan, Sse2MatchesScalarOnRandomSpans) {
    std::mt19937 random(9);
    for (const auto& [w, h] : {std::pair{16, 16}, std::pair{256, 64}, std::pair{1, 8}}) {
        Layer32bpp texture(w, h);
        fillRandom(texture, 3);
        const TiledTexture tiled = tiledTexture(texture);
        for (int run = 0; run < 200; ++run) {
            const std::size_t n = random() % 70;
            const std::uint32_t u = random(), v = random(), du = random(), dv = random();
            std::vector<std::uint32_t> scalar(n), sse2(n);
            textureSpanScalar(scalar.data(), n, tiled, u, v, du, dv);
            textureSpanSse2(sse2.data(), n, tiled, u, v, du, dv);
            ASSERT_EQ(scalar, sse2) << w << "x" << h << " n " << n;
        }
    }
}

// The texture's centre on the target's centre; a quarter turn clockwise; a zoom of 2.
TEST_F(Warpers, RotozoomTurnsAndZoomsRoundTheCentre) {
    Layer32bpp& screen = addLayer32("screen", 6, 4);
    addCoordinateTexture("tex");
    const auto texel = [&](int x, int y) { return screen.row(y)[x]; };
    make("rotozoomKeytrack32bpp screen tex constFloat 0 constFloat 1 constInt 32")->run(0);
    EXPECT_EQ(texel(0, 0), 0x0605u);  // (8 - 3, 8 - 2)
    EXPECT_EQ(texel(5, 3), 0x090Au);
    make("rotozoomKeytrack32bpp screen tex constFloat 1.5707964 constFloat 1 constInt 32")->run(0);
    // u = 8 + (y + 0.5 - 2), v = 8 - (x + 0.5 - 3): pixel (0, 0) reads (6.5, 10.5).
    EXPECT_EQ(texel(0, 0), 0x0A06u);
    EXPECT_EQ(texel(5, 3), 0x0509u);
    make("rotozoomKeytrack32bpp screen tex constFloat 0 constFloat 2 constInt 32")->run(0);
    EXPECT_EQ(pixelsOf(screen), (std::vector<std::uint32_t>{0x0706, 0x0707, 0x0707, 0x0708, 0x0708, 0x0709,  //
                                                            0x0706, 0x0707, 0x0707, 0x0708, 0x0708, 0x0709,  //
                                                            0x0806, 0x0807, 0x0807, 0x0808, 0x0808, 0x0809,  //
                                                            0x0806, 0x0807, 0x0807, 0x0808, 0x0808, 0x0809}));
}

TEST_F(Warpers, FloorLeavesTheSkyAndMovesForward) {
    Layer32bpp& screen = addLayer32("screen", 8, 9, 0x00ABCDEF);
    addCoordinateTexture("tex");
    make("sorbelFloor32bpp screen tex constFloat 0")->run(0);
    for (int x = 0; x < 8; ++x) EXPECT_EQ(screen.row(2)[x], 0x00ABCDEFu) << x;  // above the horizon (row 3)
    // The bottom row is about a texel a pixel, centred on column 8.
    EXPECT_EQ(screen.row(8)[3] & 0xFF, 7u);
    EXPECT_EQ(screen.row(8)[4] & 0xFF, 8u);
    const std::uint32_t near = screen.row(8)[4];
    make("sorbelFloor32bpp screen tex constFloat 3")->run(1);  // three texels further on
    EXPECT_EQ(screen.row(8)[4], near + 0x0300u);
}

// With nothing to move, every warper shows its source as it is; the lit one shows the
// look-up table's row 128 (flat water).
TEST_F(Warpers, StillWarpersCopyTheirSource) {
    Layer32bpp& screen = addLayer32("screen", 12, 8);
    Layer32bpp& pic = addLayer32("pic", 14, 9);  // larger than the target: read at its size
    fillRandom(pic, 4);
    Layer8bpp& pic8 = addLayer8("pic8", 12, 8);
    for (int i = 0; i < 96; ++i) pic8.pixels[i] = static_cast<std::uint8_t>(i * 7);
    Layer32bpp& lut = addLayer32("lut", 256, 256);
    std::iota(lut.pixels, lut.pixels + 65536, 0u);
    std::vector<std::uint32_t> window;
    for (int y = 0; y < 8; ++y) window.insert(window.end(), pic.row(y), pic.row(y) + 12);
    for (const char* line :
         {"sorbelWarper32bpp screen pic constFloat 0", "kestrilWarper32bpp screen pic constFloat 0 constFloat 3",
          "displacement32bpp screen pic pic8 constFloat 0"}) {
        std::fill_n(screen.pixels, 96, 0);
        make(line)->run(0.7f);
        EXPECT_EQ(pixelsOf(screen), window) << line;
    }
    make("sorbelWarperLight32bpp screen pic8 lut constFloat 0")->run(0.7f);
    for (int i = 0; i < 96; ++i) ASSERT_EQ(screen.pixels[i], 128u << 8 | pic8.pixels[i]) << i;
}

// The picture a warper reads is wider and higher than the target, its moves clamped to
// the target's size: `shown(x, y)` names the picture pixel each target pixel must show.
class WarpedCoordinates : public Warpers {
protected:
    WarpedCoordinates() : screen(addLayer32("screen", 24, 14)) { fillCoordinates(addLayer32("pic", 30, 17)); }
    template <class Shown>
    void expectShows(Shown shown) {
        for (int y = 0; y < 14; ++y)
            for (int x = 0; x < 24; ++x) {
                const auto [sx, sy] = shown(x, y);
                ASSERT_EQ(screen.row(y)[x],
                          static_cast<std::uint32_t>(std::clamp(sy, 0, 13) << 8 | std::clamp(sx, 0, 23)))
                    << x << "," << y;
            }
    }
    Layer32bpp& screen;
};

// A ramp rising 4 levels a pixel across and 8 down is a slope of 4 and 8 (half the
// difference of the neighbours; 2 and 4 at the ends, where the pixel is its own
// neighbour): at intensity 0.5 it moves 2 pixels right and 4 down, 1 and 2 at the ends.
TEST_F(WarpedCoordinates, DisplacementFollowsTheSlopeOfTheMap) {
    Layer8bpp& map = addLayer8("map", 24, 14);
    for (int y = 0; y < 14; ++y)
        for (int x = 0; x < 24; ++x) map.row(y)[x] = static_cast<std::uint8_t>(4 * x + 8 * y);
    make("displacement32bpp screen pic map constFloat 0.5")->run(0);
    expectShows([](int x, int y) {
        return std::pair{x + (x == 0 || x == 23 ? 1 : 2), y + (y == 0 || y == 13 ? 2 : 4)};
    });
}

// At t = -0.5 s with no waves across the picture (frequence 0), the row waves are at their
// crest (4 pixels right) and the column waves at sin(0.85 pi) of 4, 2 pixels down.
TEST_F(WarpedCoordinates, SineShiftsMoveRowsAndColumns) {
    make("kestrilWarper32bpp screen pic constFloat 4 constFloat 0")->run(-0.5f);
    expectShows([](int x, int y) { return std::pair{x + 4, y + 2}; });
}

// Ripples move each pixel along its direction from the centre, by at most the amplitude,
// inside and on the rim alike (the rim is the clamped path, the inside the offsets).
TEST_F(WarpedCoordinates, RipplesMoveAlongTheRadius) {
    for (const float t : {0.1f, 0.4f, 0.9f}) {
        make("sorbelWarper32bpp screen pic constFloat 3")->run(t);
        int moved = 0;
        for (int y = 0; y < 14; ++y)
            for (int x = 0; x < 24; ++x) {
                const int dx = static_cast<int>(screen.row(y)[x] & 0xFF) - x;
                const int dy = static_cast<int>(screen.row(y)[x] >> 8) - y;
                ASSERT_LE(std::max(std::abs(dx), std::abs(dy)), 3) << x << "," << y;
                moved += dx != 0 || dy != 0;
                // Inside, where no clamp bends it, a move lies within a pixel of the radius.
                if (x < 3 || y < 3 || x > 20 || y > 10) continue;
                const double rx = x + 0.5 - 12, ry = y + 0.5 - 7, r = std::hypot(rx, ry);
                EXPECT_LE(std::fabs(dx * ry - dy * rx) / r, 1.0) << x << "," << y << " t " << t;
            }
        EXPECT_GT(moved, 24 * 14 / 4) << t;
    }
}

// Any rendu but "normal" blends the rotozoom's rows through the bulk copy; 0 draws nothing.
TEST_F(Warpers, RotozoomBlendsThroughTheBulkCopy) {
    Layer32bpp& screen = addLayer32("screen", 10, 6, grey(0x70));
    fillRandom(addLayer32("tex", 8, 8), 8);
    make("rotozoomKeytrack32bpp screen tex constFloat 0.4 constFloat 1.3 constInt 32")->run(0);
    std::vector<std::uint32_t> added(60, grey(0x70));
    copyRun(added.data(), screen.pixels, 60, renduAdd);
    std::fill_n(screen.pixels, 60, grey(0x70));
    make("rotozoomKeytrack32bpp screen tex constFloat 0.4 constFloat 1.3 constInt 33")->run(0);
    EXPECT_EQ(pixelsOf(screen), added);
    make("rotozoomKeytrack32bpp screen tex constFloat 0.4 constFloat 1.3 constInt 0")->run(0);
    EXPECT_EQ(pixelsOf(screen), added);
}

// Shifts far beyond the picture, and values that are no numbers, read its edges or some
// other pixel of it, never outside it.
TEST_F(Warpers, WildTracksStillReadInsideThePicture) {
    Layer32bpp& screen = addLayer32("screen", 6, 5);
    Layer32bpp& pic = addLayer32("pic", 6, 5);
    fillRandom(pic, 6);
    addLayer8("pic8", 6, 5, 0x80).pixels[7] = 0;
    // At t = 0 the row waves are 0 and every column wave is at its crest.
    make("kestrilWarper32bpp screen pic constFloat 1e30 constFloat 0")->run(0);
    for (int y = 0; y < 5; ++y)
        EXPECT_EQ(std::vector<std::uint32_t>(screen.row(y), screen.row(y) + 6),
                  std::vector<std::uint32_t>(pic.row(4), pic.row(4) + 6))
            << y;
    Layer32bpp& tex = addLayer32("tex", 4, 2);
    fillRandom(tex, 7);
    std::vector<std::uint32_t> allowed = pixelsOf(pic), texels = pixelsOf(tex);
    allowed.insert(allowed.end(), texels.begin(), texels.end());
    std::sort(allowed.begin(), allowed.end());
    for (const char* line :
         {"sorbelWarper32bpp screen pic constFloat nan", "sorbelWarper32bpp screen pic constFloat -1e30",
          "displacement32bpp screen pic pic8 constFloat 1e30",
          "kestrilWarper32bpp screen pic constFloat 40 constFloat inf",
          "rotozoomKeytrack32bpp screen tex constFloat 1e30 constFloat 1e-30 constInt 32"}) {
        std::fill_n(screen.pixels, 30, 0x01000000u);
        make(line)->run(0.3f);
        for (std::uint32_t p : pixelsOf(screen))
            ASSERT_TRUE(std::binary_search(allowed.begin(), allowed.end(), p)) << line;
    }
}

TEST_F(Warpers, BadParametersNameTheKeyword) {
    addLayer32("screen", 8, 8);
    addLayer32("small", 8, 6);
    addLayer32("odd", 12, 16);
    addLayer8("pic8", 8, 8);
    addLayer32("lut", 128, 128);
    const std::pair<const char*, const char*> cases[] = {
        {"rotozoomKeytrack32bpp screen odd constFloat 0 constFloat 1 constInt 32",
         "rotozoomKeytrack32bpp : the map's sides must be powers of two, it is 12x16"},
        {"sorbelFloor32bpp screen odd constFloat 1",
         "sorbelFloor32bpp : the map's sides must be powers of two, it is 12x16"},
        {"sorbelWarper32bpp screen screen constFloat 1",
         "sorbelWarper32bpp : target and source must be different layers"},
        {"sorbelWarper32bpp screen small constFloat 1",
         "sorbelWarper32bpp : the map is 8x6, smaller than the target's 8x8"},
        {"sorbelWarperLight32bpp screen pic8 lut constFloat 1",
         "sorbelWarperLight32bpp : the lut must hold 256x256 entries, it is 128x128"},
        {"kestrilWarper32bpp screen screen constFloat 1 constFloat 1",
         "kestrilWarper32bpp : target and source must be different layers"},
        {"displacement32bpp screen small pic8 constFloat 1",
         "displacement32bpp : the source is 8x6, smaller than the target's 8x8"},
        {"displacement32bpp screen screen pic8 constFloat 1",
         "displacement32bpp : target and source must be different layers"},
        {"sorbelWarperLight32bpp screen screen lut constFloat 1", "Repository::aquire failure"},
    };
    for (const auto& [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

}  // namespace
}  // namespace vz::test
