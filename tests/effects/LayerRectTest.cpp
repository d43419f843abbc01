#include "effects/rendu/LayerRect.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <string>

#include "FilterTestPictures.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/ScaleDown.hpp"

namespace vz::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

// A layer drawn as text, one character per pixel: '.' for 0, '#' for 0xFF, '?' for
// anything else. Rows are separated by '|'.
std::string picture(const Layer32bpp& layer) {
    std::string text;
    for (int i = 0; i < layer.pixelCount(); ++i) {
        if (i && i % layer.width == 0) text += '|';
        text += layer.pixels[i] == 0 ? '.' : layer.pixels[i] == 0xFF ? '#' : '?';
    }
    return text;
}

// Pixel i holds i + 1.
std::unique_ptr<Layer32bpp> numbered(int w, int h) {
    auto layer = std::make_unique<Layer32bpp>(w, h);
    std::iota(layer->pixels, layer->pixels + layer->pixelCount(), 1u);
    return layer;
}

TEST(FillRect, ClipsOneShortOfTheRightAndBottomEdgesAndSkipsOutsidePositions) {
    Layer32bpp layer(6, 4);
    layer.posX = 1;
    layer.posY = 1;
    fillRect(layer, 1000, 1000, 0xFF, renduNormal);
    EXPECT_EQ(picture(layer), "......|.####.|.####.|......");

    Layer32bpp inside(6, 4);
    inside.posX = 2;
    fillRect(inside, 2, 3, 0xFF, renduNormal);
    EXPECT_EQ(picture(inside), "..##..|..##..|..##..|......");
    // A row of the whole pixel count and a height of 2 (the fading layer's call).
    inside.posX = 0;
    fillRect(inside, 24, 2, 0x80, renduGlenz50);
    EXPECT_EQ(Pixels(inside.pixels, inside.pixels + 18), (Pixels{0x40, 0x40, 0xBF, 0xBF, 0x40, 0, 0x40, 0x40, 0xBF,
                                                                 0xBF, 0x40, 0, 0, 0, 0xFF, 0xFF, 0, 0}));

    Layer32bpp outside(4, 3);
    for (auto [x, y] : {std::pair{-1, 0}, std::pair{4, 0}, std::pair{0, -1}, std::pair{0, 3}}) {
        outside.posX = x;
        outside.posY = y;
        fillRect(outside, 2, 2, 0xFF, renduNormal);
    }
    EXPECT_EQ(picture(outside), "....|....|....");
}

TEST(CopyRect, ReachesTheLastColumnAndRowWithTheSourceStride) {
    const auto source = numbered(8, 8);
    Layer32bpp layer(5, 4);
    layer.posX = 2;
    layer.posY = 1;
    copyRect(layer, *source, 0, 0, 100, 100, renduNormal);  // 3 columns and 3 rows fit
    EXPECT_EQ(pixelsOf(layer), (Pixels{0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 0, 0, 9, 10, 11, 0, 0, 17, 18, 19}));
}

TEST(CopyRect, WindowsPastTheSourceEdgeRunOnButNeverReadOutsideIt) {
    const auto wide = numbered(4, 3);
    Layer32bpp layer(3, 2);
    copyRect(layer, *wide, 2, 0, 3, 2, renduNormal);  // runs into the next row
    EXPECT_EQ(pixelsOf(layer), (Pixels{3, 4, 5, 7, 8, 9}));

    const auto source = numbered(4, 2);
    Layer32bpp target(3, 3);
    copyRect(target, *source, 2, 1, 3, 3, renduNormal);  // second row starts at pixel 10 of 8
    EXPECT_EQ(pixelsOf(target), (Pixels{7, 8, 0, 0, 0, 0, 0, 0, 0}));
    copyRect(target, *source, -2, 0, 3, 1, renduNormal);  // starts two pixels before it
    EXPECT_EQ(Pixels(target.pixels, target.pixels + 3), (Pixels{7, 8, 1}));
}

TEST(CopyRect, BlendsWithTheRendu) {
    Layer32bpp source(2, 2), layer(2, 2);
    std::fill_n(source.pixels, 4, 0x00C8C8C8u);
    std::fill_n(layer.pixels, 4, 0x00646464u);
    copyRect(layer, source, 0, 0, 2, 2, renduAdd);
    EXPECT_EQ(layer.pixels[3], 0x00FFFFFFu);  // the bulk add saturates at 255
    copyRect(layer, source, 0, 0, 2, 2, renduSub);
    EXPECT_EQ(layer.pixels[0], 0x00373737u);
}

TEST(CopyRect8, ClipsLikeTheColourCopy) {
    Layer8bpp source(4, 4);
    std::iota(source.pixels, source.pixels + 16, std::uint8_t{1});
    Layer8bpp layer(3, 3);
    layer.posX = 1;
    layer.posY = 1;
    copyRect8(layer, source, 1, 1, 5, 5);
    EXPECT_EQ(std::vector<std::uint8_t>(layer.pixels, layer.pixels + 9), (std::vector<std::uint8_t>{0, 0, 0, 0, 6, 7, 0, 10, 11}));
    layer.posX = 3;
    copyRect8(layer, source, 0, 0, 1, 1);
    EXPECT_EQ(layer.pixels[5], 7);
}

TEST(ScaleDown, TargetStrideIsHalfTheSourceWidth) {
    Layer8bpp source(4, 4);
    for (int i = 0; i < 16; ++i) source.pixels[i] = static_cast<std::uint8_t>(i * 10);
    Layer8bpp target(1, 4);  // holds the 2 x 2 result as a 1 x 4 run
    scaleDown(target, source);
    EXPECT_EQ(std::vector<std::uint8_t>(target.pixels, target.pixels + 4), (std::vector<std::uint8_t>{25, 45, 105, 125}));
    Layer8bpp small(1, 3);  // too short for the second row: it is left out
    scaleDown(small, source);
    EXPECT_EQ(std::vector<std::uint8_t>(small.pixels, small.pixels + 3), (std::vector<std::uint8_t>{25, 45, 0}));
}

}  // namespace
}  // namespace vz::test
