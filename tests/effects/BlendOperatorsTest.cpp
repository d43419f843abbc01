#include "effects/rendu/BlendOperators.hpp"

#include <gtest/gtest.h>

namespace vz {
namespace {

constexpr std::uint32_t white = 0xFFFFFF;
constexpr std::uint32_t black = 0x000000;

std::uint32_t grey(std::uint32_t v) { return v * 0x010101u; }
std::uint32_t channel(std::uint32_t pixel, int index) { return (pixel >> (8 * index)) & 0xFF; }
std::uint32_t alphaOf(std::uint32_t pixel) { return pixel >> 24; }

// Every level worked out by hand from its mask-and-shift form, per channel.
constexpr int whiteOverBlack[32] = {0,   7,   15,  22,  31,  38,  46,  56,  63,  70,  78,
                                    89,  94,  106, 112, 120, 127, 134, 142, 148, 158, 166,
                                    176, 185, 189, 199, 208, 217, 224, 233, 240, 248};
constexpr int blackOverWhite[32] = {255, 248, 240, 233, 224, 217, 209, 199, 189, 185, 177,
                                    166, 158, 148, 142, 134, 127, 120, 112, 106, 94,  89,
                                    78,  70,  63,  56,  46,  38,  31,  22,  15,  7};

TEST(BlendOperators, EveryLevelOfWhiteAndBlack) {
    for (int k = 0; k < 32; ++k) {
        SCOPED_TRACE(k);
        EXPECT_EQ(blendPixel(k, white, black), grey(whiteOverBlack[k]));
        EXPECT_EQ(blendPixel(k, black, white), grey(blackOverWhite[k]));
    }
}

TEST(BlendOperators, AlphaByteOfEachForm) {
    const std::uint32_t s = 0xA0FFFFFF;
    const std::uint32_t d = 0x50000000;
    for (int k = 0; k < 32; ++k) {
        SCOPED_TRACE(k);
        const bool keepsDestination = k <= 7 || (k >= 9 && k <= 11);
        const bool keepsSource = k == 21 || k == 23 || k == 25 || k >= 27;
        const std::uint32_t expected = keepsDestination ? 0x50 : keepsSource ? 0xA0 : 0;
        EXPECT_EQ(alphaOf(blendPixel(k, s, d)), expected);
    }
    EXPECT_EQ(blendPixel(renduNormal, s, d), s);
}

TEST(BlendOperators, ChannelsStayApart) {
    // Distinct channel values: a level must treat each channel on its own.
    const std::uint32_t s = 0x00FF8001;
    const std::uint32_t d = 0x0001FF80;
    EXPECT_EQ(blendPixel(renduGlenz50, s, d), 0x007FBF40u);
    EXPECT_EQ(blendPixel(renduGlenz25, s, d), 0x003FDD60u);
    EXPECT_EQ(blendPixel(renduGlenz75, s, d), 0x00BD9F20u);
}

// The free three-term levels reproduce their end points and stay between the
// neighbouring levels along both grey ramps.
TEST(BlendOperators, ThreeTermLevelsLieBetweenTheirNeighbours) {
    for (int k : {13, 19, 22, 26}) {
        for (std::uint32_t v = 0; v < 256; ++v) {
            for (const auto& [s, d] : {std::pair{grey(v), black}, std::pair{black, grey(v)}}) {
                const std::uint32_t below = channel(blendPixel(k - 1, s, d), 1);
                const std::uint32_t above = channel(blendPixel(k + 1, s, d), 1);
                const std::uint32_t out = blendPixel(k, s, d);
                ASSERT_EQ(out, grey(channel(out, 0))) << k << " " << v;
                ASSERT_GE(channel(out, 0), std::min(below, above)) << k << " " << v;
                ASSERT_LE(channel(out, 0), std::max(below, above)) << k << " " << v;
            }
        }
    }
}

TEST(BlendOperators, PerPixelAddIsLossy) {
    // Blue 200 + 100 saturates at 254 and leaves its carry in green's low bit.
    EXPECT_EQ(blendPixel(renduAdd, 0x00000064, 0x000000C8), 0x000001FEu);
    EXPECT_EQ(blendPixel(renduAdd, 0x00102030, 0x00010203), 0x00102232u);
    // The low bit of each byte is dropped; an alpha overflow is lost.
    EXPECT_EQ(blendPixel(renduAdd, 0x00010101, 0x00010101), 0u);
    EXPECT_EQ(blendPixel(renduAdd, 0x80000000, 0x80000000), 0u);
}

TEST(BlendOperators, PerPixelSubClearsBytesBelowZero) {
    // Blue goes below zero and is cleared; the borrow stays in green's low bit.
    EXPECT_EQ(blendPixel(renduSub, 0x00000020, 0x00808010), 0x00807F00u);
    // On a black destination the borrow runs through every byte above: only their low
    // bits are cleared, and a borrow out of the alpha byte is never caught.
    EXPECT_EQ(blendPixel(renduSub, 0x00000020, 0x00000010), 0xFF010100u);
    // Green keeps the borrow of blue in its low bit: 0x10 becomes 0x0F.
    EXPECT_EQ(blendPixel(renduSub, 0x00200020, 0x00401010), 0x00200F00u);
    EXPECT_EQ(blendPixel(renduSub, 0x00000001, 0x00000081), 0x00000080u);
    EXPECT_EQ(blendPixel(renduSub, 0x00000000, 0xFFFFFFFF), 0xFEFEFEFEu);
}

TEST(BlendOperators, AddNoSatWrapsAndCarries) {
    EXPECT_EQ(blendPixel(renduAddNoSat, 0x000000C8, 0x00000064), 0x0000012Cu);
    EXPECT_EQ(blendPixel(renduAddNoSat, 0xFF000000, 0x01FFFFFF), 0x00FFFFFFu);
}

TEST(BlendOperators, OutOfRangeRenduIsNormal) {
    for (int r : {-1, 36, 256, 1000}) EXPECT_EQ(blendPixel(r, 0x12345678, 0x9ABCDEF0), 0x12345678u);
    EXPECT_EQ(blendPixel(renduOff, 0x12345678, 0x9ABCDEF0), 0x9ABCDEF0u);
}

TEST(BlendOperators, AlphaMapTableSaturatesToNormal) {
    for (int a = 0; a < 256; ++a) {
        SCOPED_TRACE(a);
        EXPECT_EQ(alphaMapTable[a](0x12345678, 0x9ABCDEF0), operatorTable[a < 32 ? a : renduNormal](0x12345678, 0x9ABCDEF0));
    }
    EXPECT_EQ(alphaMapTable[32](0x12345678, 0), 0x12345678u);
    EXPECT_EQ(alphaMapTable[255](0x12345678, 0), 0x12345678u);
}

}  // namespace
}  // namespace vz
