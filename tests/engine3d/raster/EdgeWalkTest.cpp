// Scan conversion seen through whole renderers: which pixels a polygon covers, and the
// texels a mapped one reads.
#include <gtest/gtest.h>

#include "core/Layer.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "support/RasterTestSupport.hpp"

namespace vz::test {
namespace {

using raster::drawPainter32;

TEST(EdgeWalk, RowsAndColumnsAreRoundedUp) {
    Canvas canvas(5, 5, false);
    Material flat = material(4);
    canvas.face(flat, {{0, 0}, {0, 4}, {4, 4}}, 0xA);
    drawPainter32(canvas.context);
    EXPECT_EQ(canvas.text(), ".....|a....|aa...|aaa..|.....");
}

TEST(EdgeWalk, PolygonWithinOneRowDrawsNothing) {
    Canvas canvas(5, 5, false);
    Material flat = material(4);
    canvas.face(flat, {{0.5f, 2.2f}, {1, 2.9f}, {4, 2.5f}}, 0xA);
    drawPainter32(canvas.context);
    EXPECT_EQ(canvas.text(), ".....|.....|.....|.....|.....");
}

TEST(EdgeWalk, ClockwiseCornersDrawOnlyForDoubleFacedMaterials) {
    for (const bool doubleFace : {false, true}) {
        Canvas canvas(4, 3, false);
        Material flat = material(4);
        flat.doubleFace = doubleFace;
        canvas.face(flat, {{0, 0}, {4, 0}, {4, 2}, {0, 2}}, 0xA);  // the rectangle's corners reversed
        drawPainter32(canvas.context);
        EXPECT_EQ(canvas.text(), doubleFace ? "aaaa|aaaa|...." : "....|....|....") << doubleFace;
    }
}

TEST(EdgeWalk, TrianglesSharingAnEdgeDrawEachPixelOnce) {
    // Seen through "add": a pixel drawn twice would come out 0x040404.
    Canvas quad(11, 11, false), pair(11, 11, false);
    Material add = material(4, 33);
    const Corner a{1.3f, 0.7f}, b{0.4f, 7.9f}, c{8.1f, 9.4f}, d{9.6f, 2.2f};
    quad.face(add, {a, b, c, d}, 0x020202);
    pair.face(add, {a, b, c}, 0x020202);
    pair.face(add, {a, c, d}, 0x020202);
    drawPainter32(quad.context);
    drawPainter32(pair.context);
    EXPECT_EQ(pair.pixels, quad.pixels);
    EXPECT_EQ(std::count(quad.pixels.begin(), quad.pixels.end(), 0x020202u), 60);  // the quad's area is 59.4
}

TEST(EdgeWalk, MappedQuadsReadTheirTexelsAndNeverLeaveTheTexture) {
    Layer32bpp texture(4, 4);
    for (int i = 0; i < 16; ++i) texture.pixels[i] = static_cast<std::uint32_t>(i + 1);
    struct Case {
        int id;
        float u0, u1, v1;
        const char* expected;
    } cases[] = {
        {1, 0, 1, 1, "......|.1234.|.5678.|.9abc.|.def0.|......"},                    // u x width: one texel a pixel
        {0, 0, 4.0f / 256, 4.0f / 256, "......|.1234.|.5678.|.9abc.|.def0.|......"},  // u x 256
        {0, 0, 8.0f / 256, 4.0f / 256, "......|.1313.|.5757.|.9b9b.|.dfdf.|......"},  // wraps at the texture's width
        {1, -1, 2, 1, "......|.1134.|.5578.|.99bc.|.ddf0.|......"},                   // held at the borders
    };
    for (const Case& c : cases) {
        Canvas canvas(6, 6, false);
        Material mapped = material(c.id);
        mapped.map32 = &texture;
        canvas.rectangle(mapped, 1, 1, 5, 5, 0xFF, 0.5f, c.u0, 0, c.u1, c.v1);
        drawPainter32(canvas.context);
        EXPECT_EQ(canvas.text(), c.expected) << c.id << " " << c.u1;
    }
}

}  // namespace
}  // namespace vz::test
