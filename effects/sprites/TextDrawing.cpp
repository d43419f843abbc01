#include "effects/sprites/TextDrawing.hpp"

#include "effects/sprites/SpriteDrawing.hpp"
#include "effects/sprites/TextLayout.hpp"

namespace vz {

int glyphCell(char c) {
    if (c == ' ' || c == '_') return -1;
    if (c >= 'A' && c <= 'Z') return c - 65;
    return static_cast<unsigned char>(c) - 22;
}

float glyphAdvance(const Layer& target, const Layer32bpp& font, const TextStyle& style) {
    return (static_cast<float>(font.width) + style.spacing) / static_cast<float>(target.width);
}

void drawGlyph(Layer32bpp& target, const Layer32bpp& font, const TextStyle& style, int cell, float x, float y) {
    if (style.cells <= 0 || cell < 0 || cell >= style.cells) return;
    const int cellHeight = font.height / style.cells;
    if (cellHeight <= 0) return;
    Sprite glyph{font.width, cellHeight, 0, 0, style.scaleX, style.scaleY};
    const std::uint32_t* pixels = font.row(cell * cellHeight);
    drawSpriteAt(target, glyph, x, y, pixels, font.width, style.rendu);
}

void drawText(Layer32bpp& target, const Layer32bpp& font, const TextStyle& style, const char* text) {
    layOutText(target, font, style, text,
               [&](int, int cell, float pen) { drawGlyph(target, font, style, cell, pen, style.y); });
}

}  // namespace vz
