#include <gtest/gtest.h>

#include <cmath>

#include "engine3d/Camera.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/Scene.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz {
namespace {

class SceneComponentsTest : public test::EffectTest {
protected:
    SceneComponentsTest()
        : scene(add(std::make_unique<Scene>(), "scn")), a(addMeshe("a")), b(addMeshe("b")), p(addMeshe("p")) {}
    Meshe& addMeshe(const std::string& name) { return add(std::make_unique<Meshe>(3, 1, 3), name); }
    // Runs the component of each line once, in order, at `time`; the components live on
    // with the fixture, as they would on a timeline.
    void runLines(std::initializer_list<const char*> lines, float time = 0) {
        for (const char* line : lines) {
            made.push_back(make(line));
            made.back()->run(time);
        }
    }

    std::vector<std::unique_ptr<Component>> made;
    Scene& scene;
    Meshe &a, &b, &p;
};

TEST_F(SceneComponentsTest, RelinkingEveryFrameKeepsOneListWithTheLastLinkedFirst) {
    auto link_a = make("linkMeshe p a"), link_b = make("linkMeshe p b");
    for (int frame = 0; frame < 3; ++frame) {
        link_a->run(0);
        link_b->run(0);
        EXPECT_EQ(p.firstChild, &b);
        EXPECT_EQ(b.nextSibling, &a);
        EXPECT_EQ(a.nextSibling, nullptr);
        EXPECT_EQ(a.parent, &p);
    }
    link_b->run(0);  // already first: nothing changes, never its own sibling
    EXPECT_EQ(b.nextSibling, &a);
    runLines({"linkRoot b"});
    EXPECT_EQ(p.firstChild, &a);
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(b.nextSibling, nullptr);
}

TEST_F(SceneComponentsTest, ACycleIsRefusedNamingTheScriptLine) {
    runLines({"linkMeshe p a", "linkMeshe a b"});
    for (const char* line : {"linkMeshe b p", "linkMeshe a a"})
        EXPECT_EQ(test::errorOf([&] { runLines({line}); }),
                  "linkMeshe : component-line.txt:1 : the link would make a cycle in the hierarchy")
            << line;
    EXPECT_EQ(p.parent, nullptr);
}

TEST_F(SceneComponentsTest, InitSceneEmptiesTheSceneAndAddMesheAppendsThePlacedObject) {
    runLines({"addMeshe scn a constVector3 1 2 3 constVector3 0 0 0 constFloat 2", "initScene scn"});
    EXPECT_TRUE(scene.objects.empty());
    ASSERT_EQ(scene.cameras.size(), 1u);
    runLines({"addMeshe scn a constVector3 1 2 3 constVector3 0 0 1.5707964 constFloat 2"});
    ASSERT_EQ(scene.objects.size(), 1u);
    EXPECT_EQ(scene.objects[0], &a);
    EXPECT_FLOAT_EQ(a.position.z, 3);
    EXPECT_FLOAT_EQ(a.inverseScale.x, 0.5f);
    EXPECT_FLOAT_EQ(a.lastTime, -1.0f);
    EXPECT_FLOAT_EQ(a.rotation.rows[1].z, 1);  // sin c
}

TEST_F(SceneComponentsTest, CamerasAreSetInDegreesAndDollyZoomKeepsTheTargetsWidth) {
    const double halfWidth = 100 * std::tan(30 * 0.017453292519943295);
    const struct {
        const char* intensity;
        float z;
        double distance;
    } cases[] = {{"constFloat 50", 50, 50}, {"constFloat 200", 99, 1}, {"constFloat -100", -100, 200}};
    for (const auto& c : cases) {
        runLines(
            {"initScene scn", "setCamera scn constVector3 0 0 0 constVector3 0 0 100 constFloat 60 constFloat 0.5"});
        Camera& camera = *scene.cameras[0];
        EXPECT_FLOAT_EQ(camera.fov, 1.0471976f);
        EXPECT_FLOAT_EQ(camera.roll, 0.5f);
        runLines({(std::string("vertigoCamera scn constFloat 60 ") + c.intensity).c_str()});
        EXPECT_FLOAT_EQ(camera.position.z, c.z) << c.intensity;
        EXPECT_FLOAT_EQ(camera.fov, static_cast<float>(2 * std::atan(halfWidth / c.distance))) << c.intensity;
    }
}

}  // namespace
}  // namespace vz
