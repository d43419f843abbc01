#include "effects/rendu/BlendOperators.hpp"

#include <gtest/gtest.h>

namespace vz {
namespace {

constexpr std::uint32_t white = 0xFFFFFF;
constexpr std::uint32_t black = 0x000000;

std::uint32_t grey(std::uint32_t v) { return v * 0x010101u; }

// Every level worked out by hand from its mask-and-shift form, per channel.
constexpr int whiteOverBlack[32] = {0,   7,   15,  22,  31,  38,  46,  56,  63,  70,  78,  89,  94,  106, 112, 120,
                                    127, 134, 142, 148, 158, 166, 176, 185, 189, 199, 208, 217, 224, 233, 240, 248};
constexpr int blackOverWhite[32] = {255, 248, 240, 233, 224, 217, 209, 199, 189, 185, 177, 166, 158, 148, 142, 134,
                                    127, 120, 112, 106, 94,  89,  78,  70,  63,  56,  46,  38,  31,  22,  15,  7};

TEST(BlendOperators, EveryLevelOfWhiteAndBlackAndItsAlphaByte) {
    const std::uint32_t s = 0xA0FFFFFF, d = 0x50000000;
    for (int k = 0; k < 32; ++k) {
        SCOPED_TRACE(k);
        EXPECT_EQ(blendPixel(k, white, black), grey(whiteOverBlack[k]));
        EXPECT_EQ(blendPixel(k, black, white), grey(blackOverWhite[k]));
        const bool keepsDestination = k <= 7 || (k >= 9 && k <= 11);
        const bool keepsSource = k == 21 || k == 23 || k == 25 || k >= 27;
        EXPECT_EQ(blendPixel(k, s, d) >> 24, keepsDestination ? 0x50u : keepsSource ? 0xA0u : 0u);
    }
    EXPECT_EQ(blendPixel(renduNormal, s, d), s);
    // Distinct channel values: a level must treat each channel on its own.
    EXPECT_EQ(blendPixel(renduGlenz50, 0x00FF8001, 0x0001FF80), 0x007FBF40u);
    EXPECT_EQ(blendPixel(renduGlenz25, 0x00FF8001, 0x0001FF80), 0x003FDD60u);
    EXPECT_EQ(blendPixel(renduGlenz75, 0x00FF8001, 0x0001FF80), 0x00BD9F20u);
}

TEST(BlendOperators, PerPixelAddSubAddNoSatOffAndOutOfRange) {
    const std::uint32_t cases[][4] = {
        // Add: blue 200 + 100 saturates at 254 and leaves its carry in green's low bit;
        // the low bit of each byte is dropped and an alpha overflow is lost.
        {renduAdd, 0x00000064, 0x000000C8, 0x000001FE},
        {renduAdd, 0x00102030, 0x00010203, 0x00102232},
        {renduAdd, 0x00010101, 0x00010101, 0},
        {renduAdd, 0x01030507, 0x10102030, 0x10122436},  // odd source bytes, alpha included
        {renduAdd, 0x80000000, 0x80000000, 0},
        // Sub: a byte below zero is cleared and its borrow stays in the next byte's low
        // bit; on black the borrow runs through every byte above, out of alpha uncaught.
        {renduSub, 0x00000020, 0x00808010, 0x00807F00},
        {renduSub, 0x00000020, 0x00000010, 0xFF010100},
        {renduSub, 0x00200020, 0x00401010, 0x00200F00},
        {renduSub, 0x00000001, 0x00000081, 0x00000080},
        {renduSub, 0x00000000, 0xFFFFFFFF, 0xFEFEFEFE},
        {renduAddNoSat, 0x000000C8, 0x00000064, 0x0000012C},
        {renduAddNoSat, 0xFF000000, 0x01FFFFFF, 0x00FFFFFF},
        // Off keeps the destination; out of range is normal.
        {renduOff, 0x12345678, 0x9ABCDEF0, 0x9ABCDEF0},
        {std::uint32_t(-1), 0x12345678, 0x9ABCDEF0, 0x12345678},
        {36, 0x12345678, 0x9ABCDEF0, 0x12345678},
        {256, 0x12345678, 0x9ABCDEF0, 0x12345678},
    };
    for (const auto& [rendu, s, d, expected] : cases)
        EXPECT_EQ(blendPixel(static_cast<int>(rendu), s, d), expected) << rendu << " " << std::hex << s << " " << d;
}

}  // namespace
}  // namespace vz
