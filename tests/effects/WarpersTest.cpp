#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/warpers/TiledTexture.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Warpers = EffectTest;

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

// The picture a warper reads is wider and higher than the target, its moves clamped to
// the target's size: each line must show, at every target pixel, the picture pixel its
// `shown(x, y)` names.
class WarpedCoordinates : public EffectTest {
protected:
    WarpedCoordinates() : screen(addLayer32("screen", 24, 14)) { fillCoordinates(addLayer32("pic", 30, 17)); }
    Layer32bpp& screen;
};

TEST_F(WarpedCoordinates, StillAndEvenMovesShowTheNamedPixels) {
    // A ramp rising 4 levels a pixel across and 8 down is a slope of 4 and 8 (half the
    // difference of the neighbours; 2 and 4 at the ends, where the pixel is its own
    // neighbour): at intensity 0.5 it moves 2 pixels right and 4 down, 1 and 2 at the ends.
    Layer8bpp& map = addLayer8("map", 24, 14);
    for (int y = 0; y < 14; ++y)
        for (int x = 0; x < 24; ++x) map.row(y)[x] = static_cast<std::uint8_t>(4 * x + 8 * y);
    using Shown = std::pair<int, int> (*)(int, int);
    const Shown still = [](int x, int y) { return std::pair{x, y}; };
    const std::tuple<const char*, float, Shown> cases[] = {
        // With nothing to move, every warper shows its source as it is.
        {"sorbelWarper32bpp screen pic constFloat 0", 0.7f, still},
        {"kestrilWarper32bpp screen pic constFloat 0 constFloat 3", 0.7f, still},
        {"displacement32bpp screen pic map constFloat 0", 0.7f, still},
        {"displacement32bpp screen pic map constFloat 0.5", 0.0f,
         [](int x, int y) {
             return std::pair{x + (x == 0 || x == 23 ? 1 : 2), y + (y == 0 || y == 13 ? 2 : 4)};
         }},
        // At t = -0.5 s with no waves across the picture (frequence 0), the row waves are at
        // their crest (4 pixels right) and the column waves at sin(0.85 pi) of 4, 2 pixels down.
        {"kestrilWarper32bpp screen pic constFloat 4 constFloat 0", -0.5f, [](int x, int y) {
             return std::pair{x + 4, y + 2};
         }}};
    for (const auto& [line, t, shown] : cases) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0x01000000u);
        make(line)->run(t);
        for (int y = 0; y < 14; ++y)
            for (int x = 0; x < 24; ++x) {
                const auto [sx, sy] = shown(x, y);
                ASSERT_EQ(screen.row(y)[x],
                          static_cast<std::uint32_t>(std::clamp(sy, 0, 13) << 8 | std::clamp(sx, 0, 23)))
                    << line << " at " << x << "," << y;
            }
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
