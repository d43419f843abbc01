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
    // Cells laid out as 4-pixel glyphs starting at the given columns, -1 elsewhere.
    static std::vector<int> glyphsAt(int width, std::vector<std::pair<int, int>> columnAndCell) {
        std::vector<int> out(static_cast<std::size_t>(width), -1);
        for (auto [column, cell] : columnAndCell)
            for (int x = column; x < column + 4; ++x) out[static_cast<std::size_t>(x)] = cell;
        return out;
    }
    Layer32bpp& font;
};

TEST_F(Text, GlyphCellsAndTheUnscaledAdvance) {
    Layer32bpp& screen = addLayer32("screen", 32, 4);
    // Pen from -0.75, advance (4 + 4) / 32 = 0.25 = 4 pixels; glyph px = pen pixel - 2.
    make("PutStringKeytrack32bpp screen font constSprite -0.75 0 1 1 constInt 32 constFloat 4 AB_9")->run(0);
    const std::vector<int> line = glyphsAt(32, {{2, 0}, {6, 1}, {14, 35}});
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

TEST_F(Text, CoolTextWobblesEachGlyphOnItsOwnPhase) {
    Layer32bpp& screen = addLayer32("screen", 32, 8);
    // Spacing one glyph width: advance 8 / 32. Glyph 0 at phase 0: x unchanged, y + 0.5
    // (py 5); glyph 1 at phase 0.6: x + 0.25 sin 0.6 (px 8), y + 0.5 cos 0.6 (py 4).
    make("PutStringCool32bpp screen font constSprite -0.75 0 1 1 0.25 0.5 constInt 32 AB")->run(0);
    EXPECT_EQ(cells(screen, 4), glyphsAt(32, {{8, 1}}));
    EXPECT_EQ(cells(screen, 5), glyphsAt(32, {{2, 0}, {8, 1}}));
    EXPECT_EQ(cells(screen, 6), glyphsAt(32, {{2, 0}}));
}

TEST_F(Text, SlideTextBringsGlyphsInOneAfterAnother) {
    Layer32bpp& screen = addLayer32("screen", 32, 4);
    auto slide = make("PutStringSlide32bpp screen font constSprite -0.75 0 1 1 1 constInt 32 4 AB");
    const auto at = [&](float t) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0);
        slide->run(t);
        return cells(screen, 1);
    };
    EXPECT_EQ(at(0.5f), glyphsAt(32, {{2, 0}}));  // "B" starts at t = 1
    // Half way through its slide, a quarter of the way left to go: x = -0.5 + 1.75 / 4.
    EXPECT_EQ(at(1.25f), glyphsAt(32, {{2, 0}, {13, 1}}));
    EXPECT_EQ(at(2.0f), glyphsAt(32, {{2, 0}, {6, 1}}));
    EXPECT_EQ(at(0.0f), glyphsAt(32, {}));  // "A" starts beyond the right edge
}

}  // namespace
}  // namespace vz::test
