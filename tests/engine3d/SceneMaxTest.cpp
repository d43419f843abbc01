#include "engine3d/SceneMax.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/logstream.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/loaders/SceneExport.hpp"
#include "script/Repository.hpp"
#include "script/TextParser.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// A small export as a modelling package writes it: CRLF, tabs, a quoted name with
// spaces, blocks the loader does not use, a helper as parent, each controller kind.
// 4800 ticks are one second (30 frames of 160 ticks).
const char* const exportText =
    "*3DSMAX_ASCIIEXPORT\t200\r\n"
    "*SCENE {\r\n\t*SCENE_FRAMESPEED 30\r\n\t*SCENE_TICKSPERFRAME 160\r\n}\r\n"
    "*MATERIAL_LIST {\r\n\t*MATERIAL 0 {\r\n\t\t*MAP_DIFFUSE {\r\n\t\t\t*NODE_NAME \"not a "
    "node\"\r\n\t\t}\r\n\t}\r\n}\r\n"
    "*HELPER_CLASS {\r\n\t*NODE_NAME \"Big Dummy\"\r\n\t*NODE_TM {\r\n\t\t*NODE_NAME \"Big Dummy\"\r\n"
    "\t\t*TM_POS 1.0 2.0 3.0\r\n\t\t*TM_ROTAXIS 0.0 0.0 1.0\r\n\t\t*TM_ROTANGLE 1.5707963\r\n"
    "\t\t*TM_SCALE 2.0 3.0 4.0\r\n\t}\r\n}\r\n"
    "*GEOMOBJECT {\r\n\t*NODE_NAME \"Box\"\r\n\t*NODE_PARENT \"Big Dummy\"\r\n"
    "\t*MESH {\r\n\t\t*MESH_VERTEX_LIST {\r\n\t\t\t*MESH_VERTEX 0 0 0 0\r\n\t\t}\r\n\t}\r\n"
    "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Box\"\r\n"
    "\t\t*CONTROL_POS_TCB {\r\n\t\t\t*CONTROL_TCB_POS_KEY 0 1 2 3 25 25 25 0 0\r\n"
    "\t\t\t*CONTROL_TCB_POS_KEY 4800 4 5 6 25 25 25 0 0\r\n\t\t}\r\n"
    "\t\t*CONTROL_ROT_BEZIER {\r\n\t\t\t*CONTROL_BEZIER_ROT_KEY 0 0 0 1 0\r\n"
    "\t\t\t*CONTROL_BEZIER_ROT_KEY 2400 0 0 1 1.5707963\r\n"
    "\t\t\t*CONTROL_BEZIER_ROT_KEY 4800 0 0 1 1.5707963\r\n\t\t}\r\n"
    "\t\t*CONTROL_SCALE_TCB {\r\n\t\t\t*CONTROL_TCB_SCL_KEY 0 1 1 1 0 0 1 0 25 25 25 0 0\r\n\t\t}\r\n"
    "\t}\r\n}\r\n"
    "*GEOMOBJECT {\r\n\t*NODE_NAME \"Sphere\"\r\n\t*NODE_PARENT \"Nobody\"\r\n"
    "\t*TM_ANIMATION {\r\n\t\t*CONTROL_POS_TRACK {\r\n\t\t\t*CONTROL_POS_SAMPLE 0 0 0 0\r\n"
    "\t\t\t*CONTROL_POS_SAMPLE 960 0 0 9\r\n\t\t\t*CONTROL_BEZIER_POS_KEY 1920 0 0 8 1 1 1 2 2 2 0\r\n\t\t}\r\n"
    "\t\t*CONTROL_ROT_TRACK {\r\n\t\t\t*CONTROL_ROT_SAMPLE 0 1 0 0 0.5\r\n\t\t}\r\n\t}\r\n}\r\n"
    "*LIGHTOBJECT {\r\n\t*NODE_NAME \"Lamp\"\r\n\t*NODE_TM {\r\n\t\t*TM_POS 7 7 7\r\n\t}\r\n}\r\n"
    "*CAMERAOBJECT {\r\n\t*NODE_NAME \"Cam\"\r\n\t*CAMERA_TYPE Target\r\n"
    "\t*NODE_TM {\r\n\t\t*NODE_NAME \"Cam\"\r\n\t\t*TM_POS 0 -100 0\r\n\t}\r\n"
    "\t*NODE_TM {\r\n\t\t*NODE_NAME \"Cam.Target\"\r\n\t\t*TM_POS 0 0 10\r\n\t}\r\n"
    "\t*CAMERA_SETTINGS {\r\n\t\t*TIMEVALUE 0\r\n\t\t*CAMERA_FOV 0.7854\r\n\t}\r\n"
    "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Cam\"\r\n\t\t*CONTROL_POS_TCB {\r\n"
    "\t\t\t*CONTROL_TCB_POS_KEY 0 0 -100 0 25 25 25 0 0\r\n\t\t\t*CONTROL_TCB_POS_KEY 9600 0 -50 0 25 25 25 0 0\r\n"
    "\t\t}\r\n\t\t*CONTROL_ROT_TCB {\r\n\t\t\t*CONTROL_TCB_ROT_KEY 0 0 1 0 0.25 25 25 25 0 0\r\n"
    "\t\t\t*CONTROL_TCB_ROT_KEY 4800 0 1 0 0.25 25 25 25 0 0\r\n\t\t}\r\n\t}\r\n"
    "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Cam.Target\"\r\n\t\t*CONTROL_POS_TCB {\r\n"
    "\t\t\t*CONTROL_TCB_POS_KEY 0 0 0 10 25 25 25 0 0\r\n\t\t}\r\n\t}\r\n"
    "\t*CAMERA_ANIMATION {\r\n\t\t*CAMERA_SETTINGS {\r\n\t\t\t*TIMEVALUE 4800\r\n\t\t\t*CAMERA_FOV "
    "1.5\r\n\t\t}\r\n\t}\r\n"
    "}\r\n";

void expectNear(const Vector3& v, float x, float y, float z) {
    EXPECT_NEAR(v.x, x, 1e-5f);
    EXPECT_NEAR(v.y, y, 1e-5f);
    EXPECT_NEAR(v.z, z, 1e-5f);
}

class SceneMaxTest : public ::testing::Test {
protected:
    SceneMaxTest() {
        for (const char* name : {"m0", "m1", "m2"})
            repository.add(std::make_unique<Symbol>(std::make_unique<Meshe>(3, 1, 3)), name);
        test::writeFile("scene.ase", exportText);
    }
    ~SceneMaxTest() override { repository.clear(); }

    // "add scn SceneMax <declaration>", the declaration running over several lines.
    SceneMax& declare(const std::string& declaration) {
        test::writeFile("decl.txt", "scn SceneMax " + declaration + "\n");
        TextParser parser;
        parser.open("decl.txt");
        parser.nextLine();
        repository.load(parser);
        return repository.aquireAs<SceneMax>("scn");
    }

    test::ScratchDir dir;
    Repository repository;
};

TEST_F(SceneMaxTest, LogsTheLoadAndEveryBlockAndBindsOneMeshPerObject) {
    test::startLog();
    SceneMax& scene = declare("scene.ase\nm0\nm1\nm2");
    const std::vector<std::string> lines = test::stopLogAndReadLines();
    const std::vector<std::string> expected = {"3 - Key [scn] - Id [SceneMax]",
                                               "loadScn : loading of scene.ase",
                                               "Erreur l'objet parent n'est pas trouve",
                                               "# Model Info",
                                               "# ------------------------------",
                                               "# Num Pos 1",
                                               "# Num Rot 1",
                                               "# Num Scl 1",
                                               "# Parent object -1",
                                               "# Model Info",
                                               "# ------------------------------",
                                               "# Num Pos 2",
                                               "# Num Rot 3",
                                               "# Num Scl 1",
                                               "# Parent object 0",
                                               "# Model Info",
                                               "# ------------------------------",
                                               "# Num Pos 3",
                                               "# Num Rot 1",
                                               "# Num Scl 1",
                                               "# Parent object -1",
                                               "# Camera Info",
                                               "# ------------------------------",
                                               "# Num Pos 2",
                                               "# Num Lkt 1",
                                               "# Num Roll 2",
                                               "# Num Fov 2",
                                               "# Parent object -1",
                                               "loadScn : aseLoad done !",
                                               "Model Keytrack building : index = 0",
                                               "Model Keytrack building : index = 1",
                                               "Model Keytrack building : index = 2",
                                               "Camera Keytrack building : index = 0"};
    const auto first = std::find(lines.begin(), lines.end(), expected[0]);
    ASSERT_GE(lines.end() - first, static_cast<long>(expected.size()));
    EXPECT_EQ(std::vector<std::string>(first, first + expected.size()), expected);

    ASSERT_EQ(scene.objects.size(), 3u);
    EXPECT_EQ(scene.objects[0], &repository.aquireAs<Meshe>("m0"));
    EXPECT_EQ(scene.objects[1]->parent, scene.objects[0]);
    EXPECT_EQ(scene.objects[0]->firstChild, scene.objects[1]);
    EXPECT_EQ(scene.objects[2]->parent, nullptr);
    ASSERT_EQ(scene.cameras.size(), 1u);
}

TEST_F(SceneMaxTest, ReadsEachControllerInTheEngineAxesAndSeconds) {
    const SceneExport scene = readSceneExport("scene.ase");
    ASSERT_EQ(scene.objects.size(), 3u);
    EXPECT_EQ(scene.lights, 1);
    EXPECT_EQ(scene.objects[0].name, "Big Dummy");
    // Static transform: y and z swapped; a quarter turn about the file's z (up) is a
    // turn about the engine's y.
    expectNear(scene.objects[0].position.values[0], 1, 3, 2);
    expectNear(scene.objects[0].scale.values[0], 2, 4, 3);
    const Mat3 turn = rotationFromAngles(scene.objects[0].rotation.values[0].x, scene.objects[0].rotation.values[0].y,
                                         scene.objects[0].rotation.values[0].z);
    const Vec3 xAxis = turn * Vec3{1, 0, 0};
    EXPECT_NEAR(xAxis.x, 0, 1e-5f);
    EXPECT_NEAR(std::fabs(xAxis.z), 1, 1e-5f);
    EXPECT_NEAR(xAxis.y, 0, 1e-5f);

    const SceneObjectRecord& box = scene.objects[1];
    EXPECT_EQ(box.position.times, (std::vector<float>{0, 1}));
    expectNear(box.position.values[1], 4, 6, 5);
    // Relative keys accumulate: 0, a quarter turn, a half turn, without a jump of 2 pi.
    EXPECT_EQ(box.rotation.times, (std::vector<float>{0, 0.5f, 1}));
    expectNear(box.rotation.values[0], 0, 0, 0);
    EXPECT_NEAR(std::fabs(box.rotation.values[2].y), 3.1415927f, 1e-5f);
    EXPECT_NEAR(box.rotation.values[2].y - box.rotation.values[1].y, box.rotation.values[1].y, 1e-5f);

    const SceneObjectRecord& sphere = scene.objects[2];
    EXPECT_EQ(sphere.position.times, (std::vector<float>{0, 0.2f, 0.4f}));
    expectNear(sphere.position.values[2], 0, 8, 0);

    const SceneCameraRecord& camera = scene.cameras[0];
    expectNear(camera.position.values[1], 0, 0, -50);
    expectNear(camera.lookAt.values[0], 0, 10, 0);
    EXPECT_EQ(camera.fov.times, (std::vector<float>{0, 1}));
    expectNear(camera.fov.values[1], 1.5f, 0, 0);
    expectNear(camera.roll.values[1], 0.5f, 0, 0);
}

TEST_F(SceneMaxTest, PosesObjectsAndCamerasFromTheirTracks) {
    SceneMax& scene = declare("scene.ase\nm0\nm1\nm2");
    EXPECT_EQ(scene.objectTracks[0].position.interpolation, Spline);
    EXPECT_EQ(scene.objectTracks[1].rotation.interpolation, Linear);
    scene.pose(0.5f);
    // Two position keys: the spline falls back to linear, half way from (1,3,2) to (4,6,5).
    EXPECT_FLOAT_EQ(scene.objects[1]->position.y, 4.5f);
    EXPECT_FLOAT_EQ(scene.objects[0]->scale.y, 4);
    EXPECT_FLOAT_EQ(scene.objects[0]->inverseScale.y, 0.25f);
    EXPECT_FLOAT_EQ(scene.objects[1]->lastTime, -1.0f);
    EXPECT_FLOAT_EQ(scene.cameras[0]->position.z, -87.5f);
    EXPECT_NEAR(scene.cameras[0]->fov, 1.1427f, 1e-4f);
}

TEST_F(SceneMaxTest, BadFilesAndDeclarationsAreErrorsNamingTheFile) {
    auto objects = [](int n) {
        std::string text;
        for (int i = 0; i < n; ++i) text += "*GEOMOBJECT {\n*NODE_NAME \"o" + std::to_string(i) + "\"\n}\n";
        return text;
    };
    std::string manyKeys = "*GEOMOBJECT {\n";
    for (int i = 0; i <= 512; ++i) manyKeys += "*CONTROL_POS_SAMPLE " + std::to_string(i) + " 0 0 0\n";
    const struct {
        std::string file, error;
    } cases[] = {
        {objects(33), "loadScn : bad.ase:97 : more than 32 objects"},
        {std::string(5, '*') + "\n*CAMERAOBJECT {\n}\n*CAMERAOBJECT {\n}\n*CAMERAOBJECT {\n}\n*CAMERAOBJECT {\n}\n"
                               "*CAMERAOBJECT {\n}\n",
         "loadScn : bad.ase:10 : more than 4 cameras"},
        {manyKeys, "loadScn : bad.ase:514 : more than 512 keys in one track"},
        {"*GEOMOBJECT {\n*CONTROL_POS_SAMPLE 0 1 x 3\n}\n", "loadScn : bad.ase:2 : \"x\" is not a number"},
        {"*GEOMOBJECT {\n*CONTROL_POS_SAMPLE 0 1 2\n}\n",
         "loadScn : bad.ase:2 : *CONTROL_POS_SAMPLE has too few values"},
        {"*GEOMOBJECT {\n*CONTROL_POS_SAMPLE 160 1 2 3\n*CONTROL_POS_SAMPLE 0 1 2 3\n}\n",
         "loadScn : bad.ase:3 : a key time is not after the previous key's"},
        {"*SCENE {\n*SCENE_FRAMESPEED 0\n}\n", "loadScn : bad.ase:2 : *SCENE_FRAMESPEED must be above 0"},
        {"*GEOMOBJECT {\n*NODE_NAME a\n*NODE_PARENT b\n}\n*GEOMOBJECT {\n*NODE_NAME b\n*NODE_PARENT a\n}\n",
         "loadScn : bad.ase : the parents of a form a cycle"},
    };
    for (const auto& c : cases) {
        test::writeFile("bad.ase", c.file);
        EXPECT_EQ(test::errorOf([] { readSceneExport("bad.ase"); }), c.error) << c.file.substr(0, 40);
    }
    EXPECT_EQ(test::errorOf([] { readSceneExport("missing.ase"); }), "loadScn : can not open missing.ase");
    EXPECT_EQ(test::errorOf([&] { declare("scene.ase\nm0\nm1"); }),
              "loadScn : scene.ase has 3 objects, the script names 2 meshes");
    EXPECT_EQ(test::errorOf([&] { declare("scene.ase\nm0\nm1\nm0"); }),
              "loadScn : m0 is bound to two objects of scene.ase");
}

}  // namespace
}  // namespace vz
