#pragma once
// Our 5 x 7 bitmap font: the capitals A-Z then the digits 0-9.
#include <string>

#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

constexpr int glyphColumns = 5;
constexpr int glyphRows = 7;
constexpr int glyphCount = 36;

// Cell of a character in the font strip: A-Z are 0-25, 0-9 are 26-35, -1 otherwise.
int glyphCell(char c);

// True where the glyph of the given cell has ink.
bool glyphInk(int cell, int column, int row);

// Draws `text` with each glyph pixel as a scale x scale block of the given index,
// glyphs one pixel of the grid apart. Characters without a glyph leave a gap.
void drawText(IndexedPicture& picture, int x, int y, const std::string& text, int scale, uint8_t index);

// The font strip: 36 cells of cellSize x cellSize stacked vertically on black
// (index 0, colour 0,0,0), the glyphs scaled by 3 with a vertical gradient and a
// dark shadow.
IndexedPicture makeFontStrip(int cellSize);

}  // namespace vz::assetgen
