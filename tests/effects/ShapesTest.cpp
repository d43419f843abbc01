#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

using Shapes = EffectTest;

// The edges and coverage of the discs, coronas and circle lines are in their pinned
// frames (ProceduralFamily.EveryKeywordDrawsItsPinnedFrame); here, the shapes that must
// draw nothing at all.
TEST_F(Shapes, ShapesOutsideOrWithoutSizeDrawNothing) {
    Layer32bpp& screen = addLayer32("screen", 12, 12);
    addColor("white", 0x00FFFFFF);
    const char* lines[] = {"circle32bpp screen white constVector2 9 9 constFloat 5",
                           "circle32bpp screen white constVector2 0 0 constFloat nan",
                           "dashedCircle32bpp screen white constVector2 0 0 constFloat -3",
                           "shapeDisc32bpp screen white constVector2 -5 0 constFloat 20 constInt 32",
                           "shapeCorona32bpp screen white constVector2 0 0 constFloat 0 constInt 32",
                           "shapeDisc32bpp screen white constVector2 inf 0 constFloat 1e30 constInt 32"};
    for (const char* line : lines) {
        make(line)->run(0);
        EXPECT_EQ(std::count(screen.pixels, screen.pixels + 144, 0u), 144) << line;
    }
}

}  // namespace
}  // namespace vz::test
