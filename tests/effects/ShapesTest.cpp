#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Shapes : public EffectTest {
protected:
    Shapes() : screen(addLayer32("screen", 12, 12)) { addColor("white", 0x00FFFFFF); }
    // Which pixels are no longer black, as a picture of '#' and '.' rows.
    std::vector<std::string> drawn() const {
        std::vector<std::string> rows;
        for (int y = 0; y < screen.height; ++y) {
            std::string row;
            for (int x = 0; x < screen.width; ++x) row += screen.row(y)[x] ? '#' : '.';
            rows.push_back(row);
        }
        return rows;
    }
    Layer32bpp& screen;
};

// A pixel is inside when its centre is: radius 3 round the target's centre (6, 6) covers
// 32 pixels; the corona keeps those at 3/4 of the radius (2.25) and beyond.
TEST_F(Shapes, DiscsAndCoronasHaveExactEdges) {
    make("shapeDisc32bpp screen white constVector2 0 0 constFloat 3 constInt 32")->run(0);
    const std::vector<std::string> disc{"............", "............", "............", "....####....",
                                        "...######...", "...######...", "...######...", "...######...",
                                        "....####....", "............", "............", "............"};
    EXPECT_EQ(drawn(), disc);
    std::fill_n(screen.pixels, 144, 0);
    make("shapeCorona32bpp screen white constVector2 0 0 constFloat 3 constInt 32")->run(0);
    const std::vector<std::string> corona{"............", "............", "............", "....####....",
                                          "...#....#...", "...#....#...", "...#....#...", "...#....#...",
                                          "....####....", "............", "............", "............"};
    EXPECT_EQ(drawn(), corona);
    // The rendu applies to the same pixels: "sub" of white darkens what the disc covers.
    std::fill_n(screen.pixels, 144, grey(0x80));
    make("shapeDisc32bpp screen white constVector2 0 0 constFloat 3 constInt 34")->run(0);
    EXPECT_EQ(std::count(screen.pixels, screen.pixels + 144, grey(0x80)), 144 - 32);
    EXPECT_EQ(screen.row(6)[6], blendPixel(renduSub, 0x00FFFFFF, grey(0x80)));
}

// Each pixel near the line is blended once, at its coverage 1 - |d^2 - r^2| / 2r in
// 32nds: the diagonals, where the row and column halves meet, are not drawn twice.
TEST_F(Shapes, CircleLineIsAntialiasedByCoverage) {
    make("circle32bpp screen white constVector2 0 0 constFloat 4.2 constInt 32")->run(0);
    const double r = 4.2;
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            const double dx = x + 0.5 - 6, dy = y + 0.5 - 6;
            const int level = static_cast<int>((1.0 - std::fabs(dx * dx + dy * dy - r * r) / (2 * r)) * 32 + 0.5);
            const std::uint32_t want = level > 0 ? blendPixel(std::min(level, 32), 0x00FFFFFF, 0) : 0;
            ASSERT_EQ(screen.row(y)[x], want) << x << "," << y;
        }
    // The dashes keep part of those pixels, unchanged, and leave the rest.
    const std::vector<std::uint32_t> whole = pixelsOf(screen);
    std::fill_n(screen.pixels, 144, 0);
    make("dashedCircle32bpp screen white constVector2 0 0 constFloat 4.2")->run(0);
    int kept = 0, lit = 0;
    for (int i = 0; i < 144; ++i) {
        lit += whole[i] != 0;
        if (screen.pixels[i] == 0) continue;
        ++kept;
        ASSERT_EQ(screen.pixels[i], whole[i]) << i;
    }
    EXPECT_GT(kept, lit / 3);
    EXPECT_LT(kept, 2 * lit / 3);
}

TEST_F(Shapes, ShapesOutsideOrWithoutSizeDrawNothing) {
    const char* lines[] = {"circle32bpp screen white constVector2 9 9 constFloat 5",
                           "circle32bpp screen white constVector2 0 0 constFloat nan",
                           "dashedCircle32bpp screen white constVector2 0 0 constFloat -3",
                           "shapeDisc32bpp screen white constVector2 -5 0 constFloat 20 constInt 32",
                           "shapeCorona32bpp screen white constVector2 0 0 constFloat 0 constInt 32",
                           "shapeDisc32bpp screen white constVector2 inf 0 constFloat 1e30 constInt 32"};
    for (const char* line : lines) {
        make(line)->run(0);
        EXPECT_EQ(std::count(screen.pixels, screen.pixels + 144, 0u), 144) << line;
    }
}

}  // namespace
}  // namespace vz::test
