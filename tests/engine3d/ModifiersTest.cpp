#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "engine3d/Mesh3dTestSupport.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/modifiers/Lighting.hpp"
#include "script/Keytrack.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

std::vector<Vec3> positions(const Meshe& mesh) {
    std::vector<Vec3> p;
    for (const Vertex& v : mesh.vertices) p.push_back({v.x, v.y, v.z});
    return p;
}

void expectNear(const Vec3& got, const Vec3& want, const char* what) {
    EXPECT_NEAR(got.x, want.x, 1e-5) << what;
    EXPECT_NEAR(got.y, want.y, 1e-5) << what;
    EXPECT_NEAR(got.z, want.z, 1e-5) << what;
}

// A cube of side 2 at the origin, unturned, every face the colour 0xC08040; its copy three
// times larger; a star of six points (two at distance 2 from the centre, four at 1); a
// rotation track whose first angle is the time.
class Modifiers : public EffectTest {
protected:
    Modifiers() {
        cube = &add<Meshe>(cubeMesh(), "cube");
        cube->position = {0, 0, 0};
        for (Face& face : cube->faces) face.flatColor = 0x00C08040;
        Meshe& big = add<Meshe>(cubeMesh(), "big");
        for (Vertex& v : big.vertices) v.x *= 3, v.y *= 3, v.z *= 3;
        add<Meshe>(cubeMesh(), "morphed");
        add<Meshe>(meshOf({{-2, 0, 0}, {2, 0, 0}, {0, -1, 0}, {0, 1, 0}, {0, 0, -1}, {0, 0, 1}}, {}), "star");
        auto spin = std::make_unique<KeytrackVector3>();
        spin->times = {0, 100};
        spin->values = {{0, 0, 0}, {100, 0, 0}};
        add<KeytrackVector3>(std::move(spin), "spin");
    }
    Meshe* cube = nullptr;
    Meshe& mesh(const char* name) { return show.repository.aquireAs<Meshe>(name); }
};

TEST_F(Modifiers, MorphingBlendsTheSourcesVertexByVertex) {
    make("morphingModel morphed cube big constFloat 0.25")->run(0);
    expectNear(positions(mesh("morphed"))[7], {1.5f, 1.5f, 1.5f}, "a quarter of the way");
    expectNear(positions(mesh("morphed"))[0], {-1.5f, -1.5f, -1.5f}, "a quarter of the way");
}

// Each deformer run at 1 s, then at another time, then at 1 s again draws the first shape
// again: nothing builds up from frame to frame.
TEST_F(Modifiers, DeformersStartFromTheOriginalShapeEveryFrame) {
    for (const char* line : {"blobbyModel cube constFloat 0.3 constFloat 1.5", "spherifyCubeModel star constFloat 0.5",
                             "delayModel cube spin 2", "morphingModel morphed cube big constFloat 0.5"}) {
        auto component = make(line);
        const std::string name = std::string(line).substr(std::string(line).find(' ') + 1);
        Meshe& target = mesh(name.substr(0, name.find(' ')).c_str());
        const auto before = positions(target);
        component->run(1);
        const auto first = positions(target);
        component->run(2.7f);
        component->run(1);
        const auto again = positions(target);
        for (std::size_t i = 0; i < first.size(); ++i) expectNear(again[i], first[i], line);
        EXPECT_NE(first[0].x, before[0].x) << line;
    }
}

// With no waves across the mesh (frequency 0) the drop swells as a whole: every vertex
// moves out from the centre by 1 + amplitude x the mean of the three drifting sines.
TEST_F(Modifiers, BlobbySwellsByTheMeanOfItsWaves) {
    make("blobbyModel cube constFloat 0.3 constFloat 0")->run(2);
    const float wave = (std::sin(2.1f * 2) + std::sin(1.7f * 2) + std::sin(1.3f * 2)) / 3;
    for (const Vec3& p : positions(*cube)) EXPECT_NEAR(std::sqrt(dot(p, p)), std::sqrt(3.0f) * (1 + 0.3f * wave), 1e-5);
}

// Track values that are not numbers read 0: the mesh keeps finite positions and values.
TEST_F(Modifiers, TracksThatAreNotNumbersLeaveTheMeshFinite) {
    for (const char* line :
         {"blobbyModel cube constFloat nan constFloat inf", "spherifyCubeModel cube constFloat nan",
          "delayModel cube constVector3 nan 0 inf 1", "morphingModel morphed cube big constFloat nan",
          "phongModel cube constVector3 nan nan nan", "lightGouraudModel cube constVector3 inf 0 0",
          "lightFlatModel cube constVector3 0 nan 0"}) {
        make(line)->run(1);
        for (const char* name : {"cube", "morphed"})
            for (const Vertex& v : mesh(name).vertices)
                for (float value : {v.x, v.y, v.z, v.u, v.v, v.u2, v.v2, v.r, v.g, v.b})
                    EXPECT_TRUE(std::isfinite(value)) << line;
    }
}

TEST_F(Modifiers, SpherifyMovesTowardTheMeanRadius) {
    auto component = make("spherifyCubeModel star constFloat 0.5");
    component->run(0);
    // Mean distance 4/3: halfway from 2 is 5/3, halfway from 1 is 7/6.
    expectNear(positions(mesh("star"))[1], {5.0f / 3, 0, 0}, "half, far point");
    expectNear(positions(mesh("star"))[3], {0, 7.0f / 6, 0}, "half, near point");
    make("spherifyCubeModel star constFloat 4")->run(0);  // held at 1: on the sphere
    for (const Vec3& p : positions(mesh("star"))) EXPECT_NEAR(std::sqrt(dot(p, p)), 4.0f / 3, 1e-5);
}

// The lowest vertex turns by the angles of the time, the highest by those of `delay`
// seconds earlier, one halfway up by those of half the delay earlier (to a 255th).
TEST_F(Modifiers, DelayTurnsHigherVerticesLater) {
    add<Meshe>(meshOf({{1, 0, 0}, {1, 1, 0}, {1, 2, 0}}, {}), "mast");
    make("delayModel mast spin 2")->run(5);
    const auto turned = [](float a, const Vec3& p) { return rotationFromAngles(a, 0, 0) * p; };
    const auto p = positions(mesh("mast"));
    expectNear(p[0], turned(5, {1, 0, 0}), "bottom");
    expectNear(p[1], turned(5 - 2 * 128.0f / 255, {1, 1, 0}), "middle");
    expectNear(p[2], turned(3, {1, 2, 0}), "top");
}

TEST_F(Modifiers, EnvmapReadsTheNormalsInViewSpace) {
    const float k = 0.5f / std::sqrt(3.0f);
    auto component = make("envmapModel cube");
    component->run(0);
    EXPECT_NEAR(cube->vertices[7].u, 0.5f + k, 1e-6);  // normal (1, 1, 1): right and up
    EXPECT_NEAR(cube->vertices[7].v, 0.5f - k, 1e-6);
    cube->rotation = rotationFromAngles(std::numbers::pi_v<float> / 2, 0, 0);  // (x, y) -> (y, -x)
    component->run(0);
    EXPECT_NEAR(cube->vertices[7].u, 0.5f + k, 1e-6);
    EXPECT_NEAR(cube->vertices[7].v, 0.5f + k, 1e-6);
    EXPECT_NEAR(cube->vertices[0].u, 0.5f - k, 1e-6);  // normal -(1, 1, 1) turns to (-1, 1, -1)
    EXPECT_NEAR(cube->vertices[0].v, 0.5f - k, 1e-6);
}

// A light far along -z: the cube's -z side faces it, the others are lit by the ambient
// quarter only.
TEST_F(Modifiers, LightsWriteWhatTheFillersRead) {
    make("lightFlatModel cube constVector3 0 0 -1000000")->run(0);
    for (int f = 0; f < 12; ++f) EXPECT_EQ(cube->faces[f].flatColor, f < 2 ? 0x00C08040u : 0x00302010u) << f;

    make("lightGouraudModel cube constVector3 0 0 -1000000")->run(0);
    const float lit = ambientLight + (1 - ambientLight) / std::sqrt(3.0f);  // vertex 0, normal -(1, 1, 1)
    EXPECT_NEAR(cube->vertices[0].u2, lit * brightestLevel, 1e-5);
    EXPECT_NEAR(cube->vertices[0].r, 0xC0 * lit, 1e-3);
    EXPECT_NEAR(cube->vertices[0].b, 0x40 * lit, 1e-3);
    EXPECT_NEAR(cube->vertices[7].u2, ambientLight * brightestLevel, 1e-5);

    // Phong: the map's centre faces the light, the distance from it grows with the angle.
    make("phongModel cube constVector3 0 0 -1000000")->run(0);
    const float toward = 0.5f * std::acos(1 / std::sqrt(3.0f)) / std::numbers::pi_v<float> / std::sqrt(2.0f);
    const float away = 0.5f * std::acos(-1 / std::sqrt(3.0f)) / std::numbers::pi_v<float> / std::sqrt(2.0f);
    EXPECT_NEAR(cube->vertices[0].u2, 0.5f + toward, 1e-5);
    EXPECT_NEAR(cube->vertices[0].v2, 0.5f - toward, 1e-5);
    EXPECT_NEAR(cube->vertices[7].u2, 0.5f - away, 1e-5);
    EXPECT_NEAR(cube->vertices[7].v2, 0.5f + away, 1e-5);
}

TEST_F(Modifiers, LightComesIntoObjectSpaceThroughThePlacement) {
    cube->rotation = rotationFromAngles(0.3f, 0.2f, 0.1f);
    cube->setUniformScale(2);
    cube->position = {5, 6, 7};
    const Vec3 p{1, -2, 3};
    const Vec3 scaled = p * 2;
    expectNear(toObjectSpace(*cube, cube->rotation * scaled + cube->position), p, "round trip");
}

TEST_F(Modifiers, BadParametersNameTheKeyword) {
    addPalette("pal");
    const std::pair<const char*, const char*> cases[] = {
        {"morphingModel morphed cube star constFloat 0", "morphingModel : source2 has 6 vertices, the target 8"},
        {"morphingModel cube cube big constFloat 0", "morphingModel : the target cannot be one of its sources"},
        {"envmapModel nothing", "Repository::aquire failure"},
        {"phongModel pal constVector3 0 0 0", "Repository::aquire failure"},
        {"delayModel cube spin -1", "delayModel : delay -1 is not within 0 to 3600"},
    };
    for (const auto& [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

}  // namespace
}  // namespace vz::test
