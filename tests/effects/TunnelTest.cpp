#include <numeric>

#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "script/OffsetsTable.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

class Tunnels : public EffectTest {
protected:
    // A 256x256 texture (or lut) whose entry at address a holds base + a, so a pixel names it.
    Layer32bpp& addTexture(const std::string& name, std::uint32_t base = 0x1000000u) {
        Layer32bpp& texture = addLayer32(name, 256, 256);
        std::iota(texture.pixels, texture.pixels + 65536, base);
        return texture;
    }
    OffsetsTable& addTable(const std::string& name, int w, int h, const Pixels& entries) {
        auto table = std::make_unique<OffsetsTable>(w, h);
        std::copy(entries.begin(), entries.end(), table->pixels);
        return add<OffsetsTable>(std::move(table), name);
    }
    // The texel addresses the 32-bit target shows.
    static Pixels addresses(const Layer32bpp& target) {
        Pixels out = pixelsOf(target);
        for (auto& p : out) p -= 0x1000000u;
        return out;
    }
};

TEST_F(Tunnels, PlainTunnelMapsTheTableAndCarriesColumnsIntoRows) {
    Layer32bpp& screen = addLayer32("screen", 3, 2);
    addTexture("tex");
    // Column byte 255 at rest, the upper 16 bits set in the last entry: they never reach
    // the address (texel 1, not texel 65537).
    addTable("off", 3, 2, {0x0000, 0x12FF, 0xFFFF, 0x0305, 0x0700, 0x10001u});
    const Pixels still{0x0000, 0x12FF, 0xFFFF, 0x0305, 0x0700, 0x0001};
    make("tunnel32bpp screen tex off constVector2 0 0")->run(0);
    EXPECT_EQ(addresses(screen), still);
    make("tunnel32bpp screen tex off constVector2 0 1")->run(1);  // column 255 carries into the row, 0xFFFF wraps
    EXPECT_EQ(addresses(screen), (Pixels{0x0001, 0x1300, 0x0000, 0x0306, 0x0701, 0x0002}));
    make("tunnel32bpp screen tex off constVector2 256 256")->run(1);  // a full turn of both
    EXPECT_EQ(addresses(screen), still);
    make("tunnel32bpp screen tex off constVector2 -1.5 0")->run(1);  // a = 255: one row back
    EXPECT_EQ(screen.pixels[3] - 0x1000000u, 0x0205u);
    // The frame offset alone: speed x time in the row byte, rotation x time in the column byte.
    EXPECT_EQ(tunnelOffset(256, 0, 0.5f), 128u * 256);
    EXPECT_EQ(tunnelOffset(0, -300.7f, 1), 256u - 44);  // -300 AND 255
    EXPECT_EQ(tunnelOffset(1e30f, 0, 1), 0u);           // huge products still give a byte
}

TEST_F(Tunnels, LitTunnelPicksLutEntryOfLightAndColour) {
    Layer32bpp& screen = addLayer32("screen", 2, 1);
    Layer8bpp& texture = addLayer8("tex", 256, 256);
    texture.pixels[0x0010] = 0x21;
    addLayer8("light", 2, 1).pixels[1] = 0xC3;
    Layer32bpp& lut = addTexture("lut", 0xAB000000u);
    addTable("off", 2, 1, {0x0010, 0x0010});
    make("tunnelLighted32bpp screen tex light lut off constVector2 0 1")->run(0);
    EXPECT_EQ(pixelsOf(screen), (Pixels{0xAB000021u, 0xAB00C321u}));

    // The 16-bit light form: above 255 shows the last entry whatever the texel.
    std::uint32_t out[3];
    const std::uint32_t table[3] = {0x10, 0x10, 0x11};
    const std::uint16_t light16[3] = {255, 256, 1000};
    mapTunnelLit16(out, table, texture.pixels, light16, lut.pixels, 3, 0);
    EXPECT_EQ(Pixels(out, out + 3), (Pixels{0xAB00FF21u, 0xAB00FFFFu, 0xAB00FFFFu}));
}

TEST(TunnelTables, GeneratedEntriesAroundTheCentre) {
    Pixels table(9 * 9);
    generateTunnelTable({table.data(), 9, 9, 9}, 4, 4, 1.0f, 4096.0f, 4.0f);
    const auto at = [&](int x, int y) { return table[y * 9 + x]; };
    // Depth 4096 / distance over 4 in the row byte, the angle in the column byte: at the
    // centre 1024 -> row 0; distance 2 -> 170, a quarter turn 64 columns, -64 AND 255;
    // (5, 5) is exactly 32.0 in double precision; 4096 / 9 = 455, 26.2 columns, floor(-26.2).
    const std::tuple<int, int, std::uint32_t> expected[] = {{4, 4, 0},
                                                            {6, 4, 170 * 256},
                                                            {4, 6, 170 * 256 + 64},
                                                            {2, 4, 170 * 256 + 128},
                                                            {4, 2, 170 * 256 + 192},
                                                            {5, 5, 244 * 256 + 32},
                                                            {3, 3, 244 * 256 + 160},
                                                            {8, 7, 199 * 256 + 26},
                                                            {8, 1, 199 * 256 + 229}};
    for (const auto& [x, y, entry] : expected) EXPECT_EQ(at(x, y), entry) << x << "," << y;
}

TEST_F(Tunnels, MultiTunnelsSumWindowsAlongTheFigure) {
    Layer32bpp& screen = addLayer32("screen", 8, 6);
    addTexture("tex");
    Pixels big(16 * 12);
    generateTunnelTable({big.data(), 16, 12, 16}, 8, 6, 1.0f, 4096.0f, 4.0f);
    const auto window = [&](int x0, int y0, int x, int y) { return big[(y0 + y) * 16 + x0 + x]; };

    // At t = 0 the first window sits at (W/2, H), the second half a lap later at (W/2, 0).
    make("multiTunnels32bpp screen tex constVector2 0 0 1")->run(0);
    EXPECT_EQ(addresses(screen)[2 * 8 + 3], window(4, 6, 3, 2));
    make("multiTunnels32bpp screen tex constVector2 0 0 2")->run(0);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            ASSERT_EQ(screen.row(y)[x] - 0x1000000u, (window(4, 6, x, y) + window(4, 0, x, y)) & 0xFFFF)
                << x << "," << y;
}

TEST_F(Tunnels, StylerTunnelComputesItsTableForTheTarget) {
    Layer32bpp& screen = addLayer32("screen", 16, 8);
    addTexture("tex");
    auto styler = make("stylerTunnel32bpp screen tex constVector2 0 1");
    styler->run(0);
    // Centre (8, 4), depth 16 * 16 = 256, twice round the wall: 256 / 4 at the centre;
    // 256 / 8 at angle 0 and a quarter turn up, twice over: -128.
    const Pixels shown = addresses(screen);
    EXPECT_EQ(shown[4 * 16 + 8], 64u * 256);
    EXPECT_EQ(shown[4 * 16 + 12], 32u * 256);
    EXPECT_EQ(shown[0 * 16 + 8], 32u * 256 + 128);
    styler->run(3);
    EXPECT_EQ(screen.row(4)[12] - 0x1000000u, 32u * 256 + 3);
}

TEST_F(Tunnels, FennickCorridorIsLitByDistanceAndSwaysRowByRow) {
    Layer32bpp& screen = addLayer32("screen", 32, 16);
    Layer8bpp& texture = addLayer8("tex", 256, 256);
    for (int i = 0; i < 65536; ++i) texture.pixels[i] = static_cast<std::uint8_t>(i);  // the column byte
    addTexture("lut", 0);                                                              // light << 8 | colour
    make("fennickCouloir32bpp screen tex lut constFloat 0 constFloat 0")->run(0);
    // Dark in the distance, 4 / 8 of the way, full light from half the height out at angle 0.
    EXPECT_EQ(screen.row(8)[16] >> 8, 0u);
    EXPECT_EQ(screen.row(8)[20] >> 8, 127u);
    EXPECT_EQ(screen.row(8)[24], 255u << 8);
    const Pixels straight = pixelsOf(screen);

    // Amplitude 3 at t = 0: row 4 (a quarter of the height) is shifted by 3, row 0 not.
    make("fennickCouloir32bpp screen tex lut constFloat 3 constFloat 0")->run(0);
    for (int x = 0; x + 3 < 32; ++x) ASSERT_EQ(screen.row(4)[x], straight[4 * 32 + x + 3]) << x;
    for (int x = 0; x < 32; ++x) ASSERT_EQ(screen.row(0)[x], straight[x]) << x;
}

TEST_F(Tunnels, PobbleTunnelIsPinnedByItsChecksum) {
    Layer32bpp& screen = addLayer32("screen", 32, 24, 0x00404040);
    addColor("col", 0x00306090);
    make("pobbleTunnel32bpp screen col constInt 33")->run(0.25f);
    EXPECT_EQ(checksumOf(screen), 10342121832245036931ull);  // pebbles of the added colour on the ground
}

}  // namespace
}  // namespace vz::test
