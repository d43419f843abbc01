#include "effects/rendu/LayerRect.hpp"

#include <gtest/gtest.h>

#include <string>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/ScaleDown.hpp"

namespace vz {
namespace {

// A layer drawn as text, one character per pixel: '.' for 0, '#' for the colour drawn,
// '?' for anything else. Rows are separated by '|'.
std::string picture(const Layer32bpp& layer, std::uint32_t colour) {
    std::string text;
    for (int y = 0; y < layer.height; ++y) {
        if (y) text += '|';
        for (int x = 0; x < layer.width; ++x) {
            const std::uint32_t p = layer.row(y)[x];
            text += p == 0 ? '.' : p == colour ? '#' : '?';
        }
    }
    return text;
}

void numberPixels(Layer32bpp& layer) {
    for (std::int64_t i = 0; i < layer.pixelCount(); ++i) layer.pixels[i] = static_cast<std::uint32_t>(i + 1);
}

TEST(FillRect, StopsOneShortOfTheRightAndBottomEdges) {
    Layer32bpp layer(6, 4);
    layer.posX = 1;
    layer.posY = 1;
    fillRect(layer, 1000, 1000, 0xFF, renduNormal);
    EXPECT_EQ(picture(layer, 0xFF), "......|.####.|.####.|......");
}

TEST(FillRect, InsideRectangleIsFilledExactly) {
    Layer32bpp layer(6, 4);
    layer.posX = 2;
    fillRect(layer, 2, 3, 0xFF, renduNormal);
    EXPECT_EQ(picture(layer, 0xFF), "..##..|..##..|..##..|......");
    // A row of the whole pixel count and a height of 2 (the fading layer's call).
    layer.posX = 0;
    fillRect(layer, 24, 2, 0x80, renduGlenz50);
    EXPECT_EQ(layer.row(0)[0], 0x40u);
    EXPECT_EQ(layer.row(1)[2], 0x7Fu + 0x40u);
    EXPECT_EQ(layer.row(1)[5], 0u);
    EXPECT_EQ(layer.row(2)[0], 0u);
}

TEST(FillRect, PositionOutsideDrawsNothing) {
    Layer32bpp layer(4, 3);
    for (auto [x, y] : {std::pair{-1, 0}, std::pair{4, 0}, std::pair{0, -1}, std::pair{0, 3}}) {
        layer.posX = x;
        layer.posY = y;
        fillRect(layer, 2, 2, 0xFF, renduNormal);
    }
    EXPECT_EQ(picture(layer, 0xFF), "....|....|....");
}

TEST(CopyRect, ReachesTheLastColumnAndRow) {
    Layer32bpp source(8, 8);
    numberPixels(source);
    Layer32bpp layer(5, 4);
    layer.posX = 2;
    layer.posY = 1;
    copyRect(layer, source, 0, 0, 100, 100, renduNormal);
    // 3 columns and 3 rows fit; source rows are read with the source's width as stride.
    const std::uint32_t expected[4][5] = {
        {0, 0, 0, 0, 0}, {0, 0, 1, 2, 3}, {0, 0, 9, 10, 11}, {0, 0, 17, 18, 19}};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 5; ++x) EXPECT_EQ(layer.row(y)[x], expected[y][x]) << x << "," << y;
}

TEST(CopyRect, WindowPastTheSourceEdgeRunsIntoTheNextRow) {
    Layer32bpp source(4, 3);
    numberPixels(source);
    Layer32bpp layer(3, 2);
    copyRect(layer, source, 2, 0, 3, 2, renduNormal);
    EXPECT_EQ(std::vector<std::uint32_t>(layer.pixels, layer.pixels + 6),
              (std::vector<std::uint32_t>{3, 4, 5, 7, 8, 9}));
}

TEST(CopyRect, SourceOutsideItsMemoryIsNotRead) {
    Layer32bpp source(4, 2);
    numberPixels(source);
    Layer32bpp layer(3, 3);
    copyRect(layer, source, 2, 1, 3, 3, renduNormal);  // second row starts at pixel 10 of 8
    EXPECT_EQ(std::vector<std::uint32_t>(layer.pixels, layer.pixels + 9),
              (std::vector<std::uint32_t>{7, 8, 0, 0, 0, 0, 0, 0, 0}));
    copyRect(layer, source, -2, 0, 3, 1, renduNormal);  // starts two pixels before it
    EXPECT_EQ(std::vector<std::uint32_t>(layer.pixels, layer.pixels + 3), (std::vector<std::uint32_t>{7, 8, 1}));
}

TEST(CopyRect, BlendsWithTheRendu) {
    Layer32bpp source(2, 2);
    Layer32bpp layer(2, 2);
    for (int i = 0; i < 4; ++i) {
        source.pixels[i] = 0x00C8C8C8;
        layer.pixels[i] = 0x00646464;
    }
    copyRect(layer, source, 0, 0, 2, 2, renduAdd);
    EXPECT_EQ(layer.pixels[3], 0x00FFFFFFu);  // the bulk add saturates at 255
    copyRect(layer, source, 0, 0, 2, 2, renduSub);
    EXPECT_EQ(layer.pixels[0], 0x00373737u);
}

TEST(CopyRect8, ClipsLikeTheColourCopy) {
    Layer8bpp source(4, 4);
    for (int i = 0; i < 16; ++i) source.pixels[i] = static_cast<std::uint8_t>(i + 1);
    Layer8bpp layer(3, 3);
    layer.posX = 1;
    layer.posY = 1;
    copyRect8(layer, source, 1, 1, 5, 5);
    EXPECT_EQ(std::vector<std::uint8_t>(layer.pixels, layer.pixels + 9),
              (std::vector<std::uint8_t>{0, 0, 0, 0, 6, 7, 0, 10, 11}));
    layer.posX = 3;
    copyRect8(layer, source, 0, 0, 1, 1);
    EXPECT_EQ(layer.pixels[5], 7);
}

TEST(ScaleDown, ColourBlocksLoseTheirLowBitsAndAlpha) {
    Layer32bpp source(4, 2);
    const std::uint32_t pixels[8] = {0xFF0000FF, 0x000000FF, 0x00FFFFFF, 0x00000000,
                                     0x000000FF, 0x000000FF, 0x00030303, 0x00807060};
    std::copy(pixels, pixels + 8, source.pixels);
    Layer32bpp target(2, 1);
    scaleDown(target, source);
    EXPECT_EQ(target.pixels[0], 0x000000FCu);  // 4 x 252 / 4
    EXPECT_EQ(target.pixels[1], 0x005F5B57u);  // (252 + 0 + 0 + 128) / 4 ...
}

TEST(ScaleDown, TargetStrideIsHalfTheSourceWidth) {
    Layer8bpp source(4, 4);
    for (int i = 0; i < 16; ++i) source.pixels[i] = static_cast<std::uint8_t>(i * 10);
    Layer8bpp target(1, 4);  // holds the 2 x 2 result as a 1 x 4 run
    scaleDown(target, source);
    EXPECT_EQ(std::vector<std::uint8_t>(target.pixels, target.pixels + 4),
              (std::vector<std::uint8_t>{25, 45, 105, 125}));
    Layer8bpp small(1, 3);  // too short for the second row: it is left out
    scaleDown(small, source);
    EXPECT_EQ(small.pixels[1], 45);
    EXPECT_EQ(small.pixels[2], 0);
}

}  // namespace
}  // namespace vz
