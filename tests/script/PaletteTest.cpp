#include "script/Palette.hpp"

#include <gtest/gtest.h>

namespace vz {
namespace {

TEST(PaletteTest, ExtraByteFills) {
    Palette palette;
    palette.colors[10] = 0x12345678;
    palette.setAlpha(0xAB);
    EXPECT_EQ(palette.colors[10], 0xAB345678u);
    palette.setAlphaGradient();
    EXPECT_EQ(palette.colors[10], 0x0A345678u);
    EXPECT_EQ(palette.colors[255] >> 24, 255u);
}

TEST(PaletteTest, RangesBlendColourBytesAndKeepTheExtraByte) {
    Palette palette;
    palette.colors.fill(0x7F102030);
    palette.blendRangeToColor(2, 3, 0x00FF0040, 0.5f);
    // (255-16)*0.5+16 = 135.5, (0-32)*0.5+32 = 16, (64-48)*0.5+48 = 56: truncated.
    EXPECT_EQ(std::vector<std::uint32_t>(&palette.colors[1], &palette.colors[6]),
              std::vector<std::uint32_t>({0x7F102030, 0x7F871038, 0x7F871038, 0x7F871038, 0x7F102030}));

    Palette target;
    target.colors.fill(0x00FFFFFF);
    palette.blendRangeToPalette(250, 100, target, 2.0f);  // clipped range, saturating factor
    EXPECT_EQ(palette.colors[255], 0x7FFFFFFFu);
    EXPECT_EQ(palette.colors[249], 0x7F102030u);
    palette.blendRangeToColor(-5, 6, 0, 1.0f);
    EXPECT_EQ(palette.colors[0], 0x7F000000u);
    EXPECT_EQ(palette.colors[1], 0x7F102030u);
}

}  // namespace
}  // namespace vz
