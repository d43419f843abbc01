// The z-buffered rows: hidden runs by unsigned comparison, visible runs by signed
// comparison, the z-buffer's stamp OR-ed into every depth written.
#include <gtest/gtest.h>

#include "engine3d/raster/FaceRenderers.hpp"
#include "support/RasterTestSupport.hpp"

namespace vz::test {
namespace {

constexpr std::uint32_t stamp = 0x01000000;
constexpr std::uint32_t half = stamp | 0x800000;  // depth 0.5 this frame

// One row over stored depths: equal, nearer, top bit set, farther, an older frame's
// nearer one, top bit set again. The top-bit value (greater unsigned, smaller signed)
// is hidden where a hidden run is counted and drawn where a visible run goes on.
const std::vector<std::uint32_t> stored = {half, half + 1, 0x80000000, half - 1, 0x00FFFFFF, 0x80000000};

void drawOver(Canvas& canvas, int zMode, std::uint32_t zword) {
    Material m = material(4);
    m.zMode = zMode;
    canvas.context.zword = zword;
    canvas.rectangle(m, 0, 0, static_cast<float>(canvas.width), 1, 0xA);
    raster::drawZbuffer32(canvas.context);
}

TEST(DepthRuns, EqualAndFartherStoredDepthsAreDrawnTopBitByRunKind) {
    struct Case {
        int zMode;
        const char* drawn;
        std::vector<std::uint32_t> after;
    } cases[] = {
        {2, "a..aaa", {half, half + 1, 0x80000000, half, half, half}},
        {0, "a..aaa", stored},  // tests without writing
        {3, "aaaaaa", stored},  // painter: the z-buffer is left alone
    };
    for (const Case& c : cases) {
        Canvas canvas(6, 1);
        canvas.depths = stored;
        drawOver(canvas, c.zMode, stamp);
        EXPECT_EQ(canvas.text(), c.drawn) << c.zMode;
        EXPECT_EQ(canvas.depths, c.after) << c.zMode;
    }
}

TEST(DepthRuns, SpanDepthWithTheTopBitSetIsNeitherHiddenNorVisible) {
    // Unsigned, 0x10 is not above the span's 0x80800000; signed, it is not below it
    // either: the pixel is skipped, and the row goes on to the next.
    Canvas canvas(3, 1);
    canvas.depths = {0x10, 0x80800000, 0x90000000};
    drawOver(canvas, 2, 0x80000000);
    EXPECT_EQ(canvas.text(), ".a.");
    EXPECT_EQ(canvas.depths, (std::vector<std::uint32_t>{0x10, 0x80800000, 0x90000000}));
}

TEST(DepthRuns, DepthIsSteppedAcrossTheRow) {
    Canvas canvas(4, 1);
    Material m = material(4);
    canvas.context.zword = stamp;
    canvas.face(m, {{0, 0, 0.25f}, {0, 1, 0.25f}, {4, 1, 0.75f}, {4, 0, 0.75f}}, 0xA);
    raster::drawZbuffer32(canvas.context);
    EXPECT_EQ(canvas.depths,
              (std::vector<std::uint32_t>{stamp | 0x400000, stamp | 0x600000, stamp | 0x800000, stamp | 0xA00000}));
}

}  // namespace
}  // namespace vz::test
