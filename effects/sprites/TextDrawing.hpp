#pragma once
// Drawing a line of text as a row of glyph sprites cut from a font picture: a vertical
// strip of equal cells ("A"-"Z" then "0"-"9"). Shared by the text components and the
// frame counter overlay.
namespace vz {

class Layer32bpp;

struct TextStyle {
    float x = 0.0f;  // pen start, normalised -1..1
    float y = 0.0f;
    float scaleX = 1.0f;
    float scaleY = 1.0f;
    float spacing = 1.0f;  // extra pixels between glyphs
    int rendu = 32;
    int cells = 36;  // glyph cells in the font picture
};

void drawText(Layer32bpp& target, const Layer32bpp& font, const TextStyle& style, const char* text);

}  // namespace vz
