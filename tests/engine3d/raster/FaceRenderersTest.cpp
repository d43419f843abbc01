// The face renderers: walk orders, the filler each material id picks, deferred faces.
#include <gtest/gtest.h>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "support/RasterTestSupport.hpp"

namespace vz::test {
namespace {

using namespace raster;
using Renderer = void (*)(RenderContext&);

TEST(FaceRenderers, PainterDrawsInListOrderAndTheZbufferKeepsTheNearest) {
    // The list should run far to near; here the near face comes first.
    struct Case {
        Renderer draw;
        std::uint32_t expected;
    } cases[] = {{drawPainter32, 0x2}, {drawZbuffer32, 0x1}, {drawZbufferPrepass32, 0x1}};
    for (const Case& c : cases) {
        Canvas canvas(2, 1);
        Material m = material(4);
        canvas.rectangle(m, 0, 0, 2, 1, 0x1, 0.75f);
        canvas.rectangle(m, 0, 0, 2, 1, 0x2, 0.25f);
        c.draw(canvas.context);
        EXPECT_EQ(canvas.at(1, 0), c.expected);
    }
}

TEST(FaceRenderers, NonSolidFacesComeAfterTheSolidOnesAndLeaveTheZbuffer) {
    // A solid far face 0x10 and a non-solid near one adding 0x02, in either list order.
    struct Case {
        Renderer draw;
        bool nonSolidFirst;
        std::uint32_t expected;
    } cases[] = {
        {drawZbuffer32, false, 0x12},
        {drawZbuffer32, true, 0x12},
        {drawZbufferPrepass32, true, 0x14},  // painted flat first, then added again
    };
    for (const Case& c : cases) {
        Canvas canvas(2, 1);
        canvas.context.zword = 0x01000000;
        Material solid = material(4), glass = material(4, 33, false);
        if (c.nonSolidFirst) canvas.rectangle(glass, 0, 0, 2, 1, 0x02, 0.75f);
        canvas.rectangle(solid, 0, 0, 2, 1, 0x10, 0.25f);
        if (!c.nonSolidFirst) canvas.rectangle(glass, 0, 0, 2, 1, 0x02, 0.75f);
        c.draw(canvas.context);
        EXPECT_EQ(canvas.at(0, 0), c.expected);
        EXPECT_EQ(canvas.depths[0], 0x01400000u);
    }
}

TEST(FaceRenderers, IdsWithoutTheirOwnFillerPaintFlat) {
    Layer8bpp map(4, 4);
    std::fill_n(map.pixels, 16, 3);
    Palette palette;
    palette.colors[3] = 0x123456;
    struct Case {
        int id;
        bool solid;
        std::uint32_t expected;
    } cases[] = {
        {7, true, 0x123456},  // light 255: the palette colour as it is
        {7, false, 0xAA},     // deferred: flat
        {8, false, 0xAA},     // deferred, and no light map either
        {0, true, 0xAA},      // no map32bpp
        {2, true, 0xAA},     {3, true, 0xAA}, {42, true, 0xAA}, {-1, true, 0xAA},
    };
    for (const Case& c : cases) {
        Canvas canvas(2, 1);
        Material m = material(c.id, 32, c.solid);
        m.map8 = &map;
        m.palette = &palette;
        canvas.face(m,
                    {{0, 0, 0.5f, 0, 0, 255.0f / 256},
                     {0, 1, 0.5f, 0, 0, 255.0f / 256},
                     {2, 1, 0.5f, 0, 0, 255.0f / 256},
                     {2, 0, 0.5f, 0, 0, 255.0f / 256}},
                    0xAA);
        drawZbuffer32(canvas.context);
        EXPECT_EQ(canvas.at(1, 0), c.expected) << c.id;
    }
}

TEST(FaceRenderers, SingleKindRendererIgnoresTheMaterialId) {
    Layer32bpp texture(1, 1);
    texture.pixels[0] = 0x55;
    Canvas canvas(2, 1);
    Material m = material(0);
    m.map32 = &texture;
    canvas.rectangle(m, 0, 0, 2, 1, 0xAA);
    drawSingleKind32(canvas.context, FillerKind::flat32);
    EXPECT_EQ(canvas.at(0, 0), 0xAAu);
    drawPainter32(canvas.context);
    EXPECT_EQ(canvas.at(0, 0), 0x55u);
}

TEST(FaceRenderers, EightBitTargetsTakeTextureIndicesOrTheIntensity) {
    Layer8bpp map(4, 4);
    std::fill_n(map.pixels, 16, 7);
    Canvas canvas(3, 1);
    Material textured = material(2), shaded = material(4, 33);
    textured.map8 = &map;
    canvas.rectangle(textured, 0, 0, 2, 1, 0);
    canvas.face(shaded, {{1, 0, 0.5f, 0, 0, 250.0f / 256},
                         {1, 1, 0.5f, 0, 0, 250.0f / 256},
                         {3, 1, 0.5f, 0, 0, 250.0f / 256},
                         {3, 0, 0.5f, 0, 0, 250.0f / 256}});
    drawPainter8(canvas.context);
    EXPECT_EQ(canvas.indices, (std::vector<std::uint8_t>{7, 255, 250}));  // added, held at 255
}

}  // namespace
}  // namespace vz::test
