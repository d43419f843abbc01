// Scan conversion seen through whole renderers: which pixels a polygon covers, and the
// texels a mapped one reads.
#include <gtest/gtest.h>

#include <random>

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

TEST(EdgeWalk, NearlyFlatEdgeStillPlacesItsOneRow) {
    // The right edge climbs 0.001 over 40 pixels: a slope beyond 16.16's range, which
    // crosses row 10 halfway along.
    Canvas canvas(48, 12, false);
    Material flat = material(4);
    canvas.face(flat, {{0, 9.9995f}, {0, 10.5f}, {40, 10.0005f}}, 0xA);
    drawPainter32(canvas.context);
    EXPECT_EQ(std::count(canvas.pixels.begin(), canvas.pixels.end(), 0xAu), 20);
    EXPECT_EQ(canvas.at(19, 10), 0xAu);
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
    // Seen through "add": a pixel drawn twice would come out 0x040404. The set-up in
    // float (low quality) covers the same pixels.
    for (const bool lowQuality : {false, true}) {
        Canvas quad(11, 11, false), pair(11, 11, false);
        quad.context.lowQuality = pair.context.lowQuality = lowQuality;
        Material add = material(4, 33);
        const Corner a{1.3f, 0.7f}, b{0.4f, 7.9f}, c{8.1f, 9.4f}, d{9.6f, 2.2f};
        quad.face(add, {a, b, c, d}, 0x020202);
        pair.face(add, {a, b, c}, 0x020202);
        pair.face(add, {a, c, d}, 0x020202);
        drawPainter32(quad.context);
        drawPainter32(pair.context);
        EXPECT_EQ(pair.pixels, quad.pixels);
        EXPECT_EQ(std::count(quad.pixels.begin(), quad.pixels.end(), 0x020202u), 60);  // the area is 59.4
    }
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

TEST(EdgeWalk, NothingIsWrittenOutsideTheTarget) {
    // Corners far off every side and wild mappings over small maps: the rows above and
    // below the 10 x 10 target (and, under the sanitizers, every read) stay inside.
    constexpr std::uint32_t guard = 0x5A5A5A5A;
    std::vector<std::uint32_t> pixels(12 * 10, guard), depths(12 * 10, 0);  // 0: farthest
    Canvas canvas(10, 10);
    canvas.context.target32 = pixels.data() + 10;
    canvas.context.zbuffer = depths.data() + 10;
    std::fill_n(canvas.context.target32, 100, 0);
    Layer32bpp map(3, 2);
    std::fill_n(map.pixels, 6, 0x77);
    std::vector<Material> materials = {material(0), material(1), material(4), material(5)};
    for (Material& m : materials) m.map32 = &map;
    std::mt19937 random(9);
    std::uniform_real_distribution<float> place(-40, 50), mapping(-1000, 1000);
    for (int i = 0; i < 400; ++i)
        canvas.face(materials[i % 4],
                    {{place(random), place(random), 0.5f, mapping(random), mapping(random)},
                     {place(random), place(random), 0.5f, mapping(random), mapping(random)},
                     {place(random), place(random), 0.5f, mapping(random), mapping(random)}},
                    0x77);
    raster::drawZbuffer32(canvas.context);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(pixels[i], guard);
        EXPECT_EQ(pixels[110 + i], guard);
        EXPECT_EQ(depths[110 + i], 0u);
    }
    EXPECT_EQ(std::count(pixels.begin() + 10, pixels.begin() + 110, 0x77u), 100);
}

TEST(EdgeWalk, SquareMapsReadLikeAnyOtherMaskedMap) {
    // 256 x 256 maps are addressed without a multiply; a 257-wide map with the same texels
    // goes through the general masked fetch. Wrapping mappings give the same pictures.
    Layer32bpp square(256, 256), wide(257, 256);
    std::mt19937 random(5);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 257; ++x) {
            wide.row(y)[x] = random();
            if (x < 256) square.row(y)[x] = wide.row(y)[x];
        }
    std::uniform_real_distribution<float> mapping(-3, 3), place(-10, 70);
    for (int round = 0; round < 20; ++round) {
        Canvas a(64, 64, false), b(64, 64, false);
        Material onSquare = material(0), onWide = material(0);
        onSquare.map32 = &square;
        onWide.map32 = &wide;
        Corner corners[3];
        for (Corner& c : corners) c = {place(random), place(random), 0.5f, mapping(random), mapping(random)};
        if ((corners[1].x - corners[0].x) * (corners[2].y - corners[0].y) >
            (corners[2].x - corners[0].x) * (corners[1].y - corners[0].y))
            std::swap(corners[1], corners[2]);  // anticlockwise
        a.face(onSquare, {corners[0], corners[1], corners[2]});
        b.face(onWide, {corners[0], corners[1], corners[2]});
        drawPainter32(a.context);
        drawPainter32(b.context);
        EXPECT_EQ(a.pixels, b.pixels) << round;
    }
}

}  // namespace
}  // namespace vz::test
