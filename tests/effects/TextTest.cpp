#include "effects/sprites/TextDrawing.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

// Font 4 pixels wide with cells 2 rows high; every pixel of cell c holds c + 1.
class Text : public EffectTest {
protected:
    Text() : font(addLayer32("font", 4, 72)) {
        for (int y = 0; y < 72; ++y)
            for (int x = 0; x < 4; ++x) font.row(y)[x] = static_cast<std::uint32_t>(y / 2 + 1);
    }
    // Row y of the target from column 0, as cell numbers (0 where nothing is drawn).
    static std::vector<int> cells(const Layer32bpp& target, int y) {
        std::vector<int> out;
        for (int x = 0; x < target.width; ++x) out.push_back(static_cast<int>(target.row(y)[x]) - 1);
        return out;
    }
    Layer32bpp& font;
};

TEST_F(Text, GlyphCellsAndTheUnscaledAdvance) {
    Layer32bpp& screen = addLayer32("screen", 32, 4);
    // Pen from -0.75, advance (4 + 4) / 32 = 0.25 = 4 pixels; glyph px = pen pixel - 2.
    make("PutStringKeytrack32bpp screen font constSprite -0.75 0 1 1 constInt 32 constFloat 4 AB_9")->run(0);
    const std::vector<int> line{-1, -1, 0,  0,  0,  0,  1,  1,  1,  1,  -1, -1, -1, -1, 35, 35,
                                35, 35, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
    EXPECT_EQ(cells(screen, 1), line);
    EXPECT_EQ(cells(screen, 2), line);
    EXPECT_EQ(cells(screen, 0), std::vector<int>(32, -1));

    // The scale sizes the glyphs but not the advance; ':' and 'a' have no cell in the
    // font: nothing drawn, the pen still moves.
    Layer32bpp& wide = addLayer32("wide", 32, 8);
    TextStyle style;
    style.x = -0.75f;
    style.spacing = 4;
    style.scaleX = 0.5f;
    drawText(wide, font, style, "A:aB");
    EXPECT_EQ(cells(wide, 3), (std::vector<int>{-1, -1, -1, 0,  0,  -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, 1,
                                                1,  -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1}));
}

}  // namespace
}  // namespace vz::test
