#include <algorithm>
#include <filesystem>

#include "core/Zbuffer.hpp"
#include "engine3d/MeshPreparation.hpp"
#include "engine3d/Scene.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz {
namespace {

// Scene players and mesh players share one projection: the same object seen by the same
// camera gives the same pixels, whichever player draws it.
class ScenePlayersTest : public test::EffectTest {
protected:
    ScenePlayersTest() : screen(addLayer32("screen", 64, 40)) {
        test::writeFile("flat.txt", "color tint\n");
        addColor("tint", 0x00C08040);
        add<Material>(Material::load("flat.txt", show.repository), "flat");
        test::writeFile("tri.asc",
                        "Tri-mesh, Vertices: 3 Faces: 1\nVertex 0: X:-30 Y:0 Z:-20\nVertex 1: X:40 Y:0 Z:-30\n"
                        "Vertex 2: X:0 Y:0 Z:35\nFace 0: A:0 B:1 C:2 AB:1 BC:1 CA:1\n");
        for (const char* name : {"tri", "parent"}) {
            auto mesh = GenModels::loadModel("tri.asc", sharedMaterial(show.repository, "flat"));
            prepareMesh(*mesh);
            add<Meshe>(std::move(mesh), name);
        }
        add(std::make_unique<Scene>(), "scn");
        make("setFov 1")->run(0);
    }
    // What the painter mesh player draws of the triangle at `position`.
    test::Pixels meshPlayerPicture(const std::string& position) {
        clear();
        make("meshePlayerPainter32bpp screen tri constVector3 " + position + " constVector3 0 0 0 constFloat 1")
            ->run(0);
        return test::pixelsOf(screen);
    }
    // "add max SceneMax one.ase" with one object "tri" moving as `positionKeys` say,
    // seen by a camera at the origin looking along the file's second axis (fov 1 radian).
    void declareSceneMax(const std::string& positionKeys) {
        test::writeFile("one.ase", "*GEOMOBJECT {\n *NODE_NAME \"tri\"\n *TM_ANIMATION {\n" + positionKeys +
                                       " }\n}\n*CAMERAOBJECT {\n *NODE_TM {\n  *TM_POS 0 0 0\n }\n"
                                       " *NODE_TM {\n  *TM_POS 0 10 0\n }\n"
                                       " *CAMERA_SETTINGS {\n  *TIMEVALUE 0\n  *CAMERA_FOV 1.0\n }\n}\n");
        test::writeFile("decl.txt", "max SceneMax one.ase\ntri\n");
        TextParser parser;
        parser.open("decl.txt");
        parser.nextLine();
        show.repository.load(parser);
    }
    test::Pixels sceneMaxPicture(float time) {
        clear();
        make("sceneMaxPlayerPainter32bpp screen max")->run(time);
        return test::pixelsOf(screen);
    }
    void clear() { std::fill_n(screen.pixels, screen.pixelCount(), 0u); }
    // One frame of a Scene: the camera of the mesh players, then `lines`, then the player.
    test::Pixels scenePicture(std::initializer_list<std::string> lines) {
        clear();
        std::vector<std::unique_ptr<Component>> frame;  // alive for the frame, as on a timeline
        for (const std::string& line :
             {std::string("initScene scn"),
              std::string("setCamera scn constVector3 0 0 0 constVector3 0 0 1 constFloat 57.29578 constFloat 0")})
            frame.push_back(make(line));
        for (const std::string& line : lines) frame.push_back(make(line));
        for (auto& component : frame) component->run(0);
        make("scenePlayerPainter32bpp screen scn")->run(0);
        return test::pixelsOf(screen);
    }

    Layer32bpp& screen;
};

TEST_F(ScenePlayersTest, SceneObjectsAndChildrenDrawAsTheMeshPlayerDraws) {
    const test::Pixels expected = meshPlayerPicture("20 5 256");
    EXPECT_EQ(std::count(expected.begin(), expected.end(), 0x00C08040u), 109);
    EXPECT_EQ(scenePicture({"addMeshe scn tri constVector3 20 5 256 constVector3 0 0 0 constFloat 1"}), expected);
    // The child's position is taken in its parent's space; the parent, added before
    // initScene, is not drawn.
    EXPECT_EQ(scenePicture({"addMeshe scn parent constVector3 20 0 250 constVector3 0 0 0 constFloat 1",
                            "linkMeshe parent tri", "initScene scn",
                            "setCamera scn constVector3 0 0 0 constVector3 0 0 1 constFloat 57.29578 constFloat 0",
                            "addMeshe scn tri constVector3 0 5 6 constVector3 0 0 0 constFloat 1"}),
              expected);
}

TEST_F(ScenePlayersTest, SceneMaxDrawsItsObjectsAndCameraAsTheirTracksSay) {
    // The object moves from file (20, 256, 5) to (-20, 256, 5) in one second.
    declareSceneMax("  *CONTROL_POS_SAMPLE 0 20 256 5\n  *CONTROL_POS_SAMPLE 4800 -20 256 5\n");
    EXPECT_EQ(sceneMaxPicture(0), meshPlayerPicture("20 5 256"));
    EXPECT_EQ(sceneMaxPicture(0.5f), meshPlayerPicture("0 5 256"));
}

TEST_F(ScenePlayersTest, AStreamRecordsWhenFacesAppearAndVanishAndPlaysThemBack) {
    // In view until 1 s, then passing behind the camera by 2 s.
    declareSceneMax(
        "  *CONTROL_POS_SAMPLE 0 0 256 0\n  *CONTROL_POS_SAMPLE 4800 0 256 0\n"
        "  *CONTROL_POS_SAMPLE 9600 0 -256 0\n");
    Zbuffer& depth = add(std::make_unique<Zbuffer>(64, 40), "zb");
    test::startLog();
    {
        auto recorder = make("sceneMaxStreamRecorder32bpp screen zb max take.str 2");
        for (float time : {0.25f, 0.5f, 1.0f, 1.5f}) {
            depth.advanceStamp();
            recorder->run(time);
        }
    }
    const std::vector<std::string> lines = test::stopLogAndReadLines();
    // Appears (one entry), stays (an empty chunk), vanishes (one entry).
    const std::vector<std::string> frames = {"Streamer: size of Frame = 26", "Streamer: size of Frame = 24",
                                             "Streamer: size of Frame = 26"};
    EXPECT_NE(std::search(lines.begin(), lines.end(), frames.begin(), frames.end()), lines.end());
    EXPECT_EQ(std::filesystem::file_size("take.str"), 148u + 76u);

    auto player = make("sceneMaxPlayerStreamer32bpp screen zb max take.str");
    auto whole = make("sceneMaxPlayerZbuffer32bpp screen zb max");
    auto picture = [&](Component& component, float time) {
        clear();
        depth.advanceStamp();
        component.run(time);
        return test::pixelsOf(screen);
    };
    const test::Pixels shown = picture(*whole, 0.5f);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), 0x00C08040u), 109);
    EXPECT_EQ(picture(*player, 0.5f), shown);
    // At 1.1 s the sample of 1.5 s is already in force: the face is hidden.
    EXPECT_NE(picture(*whole, 1.1f), test::Pixels(screen.pixelCount(), 0));
    EXPECT_EQ(picture(*player, 1.1f), test::Pixels(screen.pixelCount(), 0));
}

}  // namespace
}  // namespace vz
