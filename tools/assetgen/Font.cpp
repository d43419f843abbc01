#include "tools/assetgen/Font.hpp"

#include <stdexcept>

namespace vz::assetgen {

namespace {
// Each glyph is 7 rows of 5 columns, "#" for ink.
constexpr const char* glyphs[glyphCount][glyphRows] = {
    {" ### ", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"},  // A
    {"#### ", "#   #", "#   #", "#### ", "#   #", "#   #", "#### "},  // B
    {" ####", "#    ", "#    ", "#    ", "#    ", "#    ", " ####"},  // C
    {"#### ", "#   #", "#   #", "#   #", "#   #", "#   #", "#### "},  // D
    {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#####"},  // E
    {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#    "},  // F
    {" ####", "#    ", "#    ", "#  ##", "#   #", "#   #", " ### "},  // G
    {"#   #", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"},  // H
    {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "#####"},  // I
    {"  ###", "    #", "    #", "    #", "    #", "#   #", " ### "},  // J
    {"#   #", "#  # ", "# #  ", "##   ", "# #  ", "#  # ", "#   #"},  // K
    {"#    ", "#    ", "#    ", "#    ", "#    ", "#    ", "#####"},  // L
    {"#   #", "## ##", "# # #", "# # #", "#   #", "#   #", "#   #"},  // M
    {"#   #", "##  #", "# # #", "#  ##", "#   #", "#   #", "#   #"},  // N
    {" ### ", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "},  // O
    {"#### ", "#   #", "#   #", "#### ", "#    ", "#    ", "#    "},  // P
    {" ### ", "#   #", "#   #", "#   #", "# # #", "#  # ", " ## #"},  // Q
    {"#### ", "#   #", "#   #", "#### ", "# #  ", "#  # ", "#   #"},  // R
    {" ####", "#    ", "#    ", " ### ", "    #", "    #", "#### "},  // S
    {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  "},  // T
    {"#   #", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "},  // U
    {"#   #", "#   #", "#   #", "#   #", " # # ", " # # ", "  #  "},  // V
    {"#   #", "#   #", "#   #", "# # #", "# # #", "## ##", "#   #"},  // W
    {"#   #", " # # ", "  #  ", "  #  ", "  #  ", " # # ", "#   #"},  // X
    {"#   #", "#   #", " # # ", "  #  ", "  #  ", "  #  ", "  #  "},  // Y
    {"#####", "    #", "   # ", "  #  ", " #   ", "#    ", "#####"},  // Z
    {" ### ", "#   #", "#  ##", "# # #", "##  #", "#   #", " ### "},  // 0
    {"  #  ", " ##  ", "# #  ", "  #  ", "  #  ", "  #  ", "#####"},  // 1
    {" ### ", "#   #", "    #", "   # ", "  #  ", " #   ", "#####"},  // 2
    {"#### ", "    #", "    #", " ### ", "    #", "    #", "#### "},  // 3
    {"   # ", "  ## ", " # # ", "#  # ", "#####", "   # ", "   # "},  // 4
    {"#####", "#    ", "#### ", "    #", "    #", "#   #", " ### "},  // 5
    {" ### ", "#    ", "#    ", "#### ", "#   #", "#   #", " ### "},  // 6
    {"#####", "    #", "   # ", "  #  ", " #   ", " #   ", " #   "},  // 7
    {" ### ", "#   #", "#   #", " ### ", "#   #", "#   #", " ### "},  // 8
    {" ### ", "#   #", "#   #", " ####", "    #", "    #", " ### "},  // 9
};

constexpr int glyphScale = 3;
constexpr uint8_t shadowIndex = 255;
constexpr uint8_t firstGradientIndex = 1;
}  // namespace

int glyphCell(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= '0' && c <= '9') return 26 + (c - '0');
    return -1;
}

bool glyphInk(int cell, int column, int row) { return glyphs[cell][row][column] == '#'; }

void drawText(IndexedPicture& picture, int x, int y, const std::string& text, int scale, uint8_t index) {
    for (char ch : text) {
        const int cell = glyphCell(ch);
        for (int r = 0; cell >= 0 && r < glyphRows; ++r) {
            for (int c = 0; c < glyphColumns; ++c) {
                if (!glyphInk(cell, c, r)) continue;
                for (int dy = 0; dy < scale; ++dy)
                    for (int dx = 0; dx < scale; ++dx) {
                        const int px = x + c * scale + dx, py = y + r * scale + dy;
                        if (px >= 0 && py >= 0 && px < picture.width && py < picture.height) picture.at(px, py) = index;
                    }
            }
        }
        x += (glyphColumns + 1) * scale;
    }
}

IndexedPicture makeFontStrip(int cellSize) {
    const int inkWidth = glyphColumns * glyphScale, inkHeight = glyphRows * glyphScale;
    if (cellSize < inkHeight + 2) throw std::invalid_argument("font cells too small for the glyphs");
    IndexedPicture font(cellSize, cellSize * glyphCount);
    // Index 0 stays pure black, the transparent colour of sprites.
    fillGradient(font.palette, firstGradientIndex, firstGradientIndex + inkHeight - 1,
                 {{255, 255, 200}, {255, 200, 40}, {230, 90, 20}});
    font.palette[shadowIndex] = {40, 20, 70};
    const int left = (cellSize - inkWidth) / 2 - 1, top = (cellSize - inkHeight) / 2 - 1;
    for (int cell = 0; cell < glyphCount; ++cell) {
        const int y0 = cell * cellSize + top;
        for (int r = 0; r < glyphRows; ++r)
            for (int c = 0; c < glyphColumns; ++c) {
                if (!glyphInk(cell, c, r)) continue;
                for (int dy = 0; dy < glyphScale; ++dy)
                    for (int dx = 0; dx < glyphScale; ++dx) {
                        const int x = left + c * glyphScale + dx, y = y0 + r * glyphScale + dy;
                        // The shadow falls two pixels down-right and never covers ink.
                        uint8_t& shadow = font.at(x + 2, y + 2);
                        if (shadow == 0) shadow = shadowIndex;
                        font.at(x, y) = uint8_t(firstGradientIndex + r * glyphScale + dy);
                    }
            }
    }
    return font;
}

}  // namespace vz::assetgen
