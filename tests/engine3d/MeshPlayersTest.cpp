#include <cmath>

#include "core/Zbuffer.hpp"
#include "engine3d/MeshPreparation.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz {
namespace {

// A square of side 80 facing the camera, its outline marked as edges; in the file's
// axes, so it stands in the file's X-Z plane.
constexpr const char* square =
    "Tri-mesh, Vertices: 4 Faces: 2\nMapped\n"
    "Vertex 0: X:-40 Y:0 Z:-40 U:0 V:0\nVertex 1: X:40 Y:0 Z:-40 U:1 V:0\n"
    "Vertex 2: X:40 Y:0 Z:40 U:1 V:1\nVertex 3: X:-40 Y:0 Z:40 U:0 V:1\n"
    "Face 0: A:0 B:1 C:2 AB:1 BC:1 CA:0\nFace 1: A:0 B:2 C:3 AB:0 BC:1 CA:1\n";

class MeshPlayersTest : public test::EffectTest {
protected:
    MeshPlayersTest() {
        test::writeFile("flat.txt", "color tint\n");
        addColor("tint", 0x00C08040);
        add<Material>(Material::load("flat.txt", show.repository), "flat");
        test::writeFile("square.asc", square);
        auto mesh = GenModels::loadModel("square.asc", sharedMaterial(show.repository, "flat"));
        prepareMesh(*mesh);
        add<Meshe>(std::move(mesh), "square");
        Palette& grey = addPalette("grey");
        for (int i = 0; i < 256; ++i) grey.colors[i] = test::grey(static_cast<std::uint32_t>(i));
    }

    // The lit pixels' bounding box (left, top, right, bottom) and count.
    static std::array<int, 5> litBox(const Layer32bpp& layer) {
        std::array<int, 5> box{layer.width, layer.height, -1, -1, 0};
        for (int y = 0; y < layer.height; ++y)
            for (int x = 0; x < layer.width; ++x)
                if (layer.row(y)[x]) {
                    box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y),
                           box[4] + 1};
                }
        return box;
    }

    const std::string tracks = " constVector3 0 0 256 constVector3 0 0 0 constFloat 1";
};

TEST_F(MeshPlayersTest, WireframeOutlinesInThePaletteEntryOfItsDistanceAndFollowsSetFov) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    auto wire = make("meshePlayerWireframe32bpp screen grey square" + tracks + " constInt 32");
    wire->run(0);
    // Half a side, 40 units at distance 256, spans 40 / 256 / tan(0.5) x 32 = 9.15 pixels.
    EXPECT_EQ(litBox(screen), (std::array<int, 5>{23, 11, 41, 29, 72}));
    for (std::uint32_t p : test::pixelsOf(screen)) EXPECT_TRUE(p == 0 || p == test::grey(128));

    make("setFov 2")->run(0);
    std::fill_n(screen.pixels, screen.pixelCount(), 0u);
    wire->run(0);
    EXPECT_EQ(litBox(screen), (std::array<int, 5>{29, 17, 35, 23, 24}));
}

TEST_F(MeshPlayersTest, DotsGrowWithTheirRadiusRule) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    addLayer32("dot", 2, 2, test::grey(100));
    struct Case {
        const char* radii;
        const char* position;
        int litPerDot;
    };
    for (const Case& c : {Case{"1 0", "0 0 256", 4}, Case{"0 2", "0 0 256", 16}, Case{"0 2", "0 0 512", 4},
                          Case{"1 1", "0 0 256", 16}, Case{"-1 0", "0 0 256", 0}}) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0u);
        make(std::string("meshePlayerDot32bpp screen dot square ") + c.radii + " constVector3 " + c.position +
             " constVector3 0 0 0 constFloat 1")
            ->run(0);
        EXPECT_EQ(litBox(screen)[4], 4 * c.litPerDot) << c.radii << " at " << c.position;
    }
}

TEST_F(MeshPlayersTest, FacePlayersDrawTheSquareFlatInTheMaterialColour) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    add<Zbuffer>(std::make_unique<Zbuffer>(64, 40), "depth");
    for (const char* player : {"meshePlayerPainter32bpp screen", "meshePlayerZbuffer32bpp screen depth"}) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0u);
        make(std::string(player) + " square" + tracks)->run(0);
        // From 22.85 to 41.15 across, 10.85 to 29.15 down: rounded up on both sides, the
        // square covers columns 23..41 and rows 11..29.
        EXPECT_EQ(litBox(screen), (std::array<int, 5>{23, 11, 41, 29, 19 * 19})) << player;
        for (std::uint32_t p : test::pixelsOf(screen)) EXPECT_TRUE(p == 0 || p == 0x00C08040u);
    }
}

TEST_F(MeshPlayersTest, ZbufferPlayersSharingABufferHideTheFartherWhicheverDrawsLast) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    add<Zbuffer>(std::make_unique<Zbuffer>(64, 40), "depth");
    test::writeFile("red.txt", "color red\n");
    addColor("red", 0x00FF0000);
    add<Material>(Material::load("red.txt", show.repository), "redflat");
    test::writeFile("near.asc", square);
    auto near = GenModels::loadModel("near.asc", sharedMaterial(show.repository, "redflat"));
    add<Meshe>(std::move(near), "near");
    // The red square stands nearer (200) and smaller (scale 0.5) than the other one (256).
    auto nearPlayer =
        make("meshePlayerZbuffer32bpp screen depth near constVector3 0 0 200 constVector3 0 0 0 constFloat 0.5");
    auto farPlayer = make("meshePlayerZbuffer32bpp screen depth square" + tracks);
    nearPlayer->run(0);
    farPlayer->run(0);
    const std::uint32_t centre = screen.row(20)[32], corner = screen.row(12)[24];
    EXPECT_EQ(centre, 0x00FF0000u);
    EXPECT_EQ(corner, 0x00C08040u);
}

TEST_F(MeshPlayersTest, AntialiasWithoutScateringAddsEightEighthsOfTheSamePicture) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    make("meshePlayerPainter32bpp screen square" + tracks)->run(0);
    test::Pixels painted = test::pixelsOf(screen);
    for (std::uint32_t& p : painted) p = (p & 0xF8F8F8u) + 0x010101u;
    // Depth of field with the object in focus: no scatering either.
    for (const char* player : {"meshePlayerAntialias32bpp screen square constFloat 0",
                               "meshePlayerDOF32bpp screen square constFloat 256 5 5"}) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0x010101u);
        make(player + tracks)->run(0);
        EXPECT_EQ(test::pixelsOf(screen), painted) << player;
    }
}

TEST_F(MeshPlayersTest, MultiPassPlayersByChecksum) {
    Layer32bpp& screen = addLayer32("screen", 64, 40);
    const std::string turning = " constVector3 3 -2 256 constVector3 0.2 0.4 0.1 constFloat 1";
    struct Case {
        std::string line;
        std::uint64_t checksum;
    };
    const Case cases[] = {
        {"meshePlayerAntialias32bpp screen square constFloat 4" + turning, 4701525864322364915u},
        {"meshePlayerMotionblur32bpp screen square constFloat 0.5" + turning, 14026933296380604931u},
        {"meshePlayerDOF32bpp screen square constFloat 128 2 6" + turning, 8988829663963713443u},
    };
    for (const Case& c : cases) {
        std::fill_n(screen.pixels, screen.pixelCount(), 0u);
        make(c.line)->run(0);
        EXPECT_EQ(test::checksumOf(screen), c.checksum) << c.line;
    }
}

TEST_F(MeshPlayersTest, MaterialRenduAndLinkMaterialChangeWhatTheFacesUse) {
    test::writeFile("other.txt", "id gouraud32bpp\n");
    Material& other = add<Material>(Material::load("other.txt", show.repository), "other");
    make("materialRendu other constInt 33")->run(0);
    EXPECT_EQ(other.rendu, 33);
    auto link = make("linkMaterial square other");
    Meshe& mesh = show.repository.aquireAs<Meshe>("square");
    EXPECT_EQ(mesh.faces[1].materialId, 4);  // bound on its first run, not before
    link->run(0);
    EXPECT_EQ(mesh.faces[1].material, &other);
    EXPECT_EQ(mesh.faces[1].materialId, 6);
}

}  // namespace
}  // namespace vz
