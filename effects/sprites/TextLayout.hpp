#pragma once
// The pieces of text drawing, for the text components that move each glyph on its own
// (drawText in TextDrawing.hpp lays a plain line out with them).
#include "core/Layer.hpp"
#include "effects/sprites/TextDrawing.hpp"

namespace vz {

// The glyph cell of a character: "A"-"Z" are cells 0-25, any other character c is cell
// c - 22 (so "0"-"9" are 26-35); blanks and "_" have none (-1).
int glyphCell(char c);

// How far the pen moves after every character, blanks included, in normalised units:
// (font width + spacing) / target width. The glyphs' scale does not enter it.
float glyphAdvance(const Layer& target, const Layer32bpp& font, const TextStyle& style);

// Draws glyph cell `cell` centred on normalised (x, y) with the style's scale and rendu.
// Cells outside the font (below 0, or not below style.cells) draw nothing rather than
// read past the picture, and so does a font lower than style.cells rows.
void drawGlyph(Layer32bpp& target, const Layer32bpp& font, const TextStyle& style, int cell, float x, float y);

// Calls glyph(index, cell, penX) for each character that has a cell, index counting
// every character of the text; the pen starts at style.x and advances after each one.
template <class GlyphFn>
void layOutText(const Layer& target, const Layer32bpp& font, const TextStyle& style, const char* text,
                GlyphFn&& glyph) {
    const float advance = glyphAdvance(target, font, style);
    float pen = style.x;
    for (int i = 0; text[i] != '\0'; ++i, pen += advance)
        if (const int cell = glyphCell(text[i]); cell >= 0) glyph(i, cell, pen);
}

}  // namespace vz
