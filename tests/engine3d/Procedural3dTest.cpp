#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/Zbuffer.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/Mesh3dTestSupport.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/procedural/Metaballs.hpp"
#include "script/Material.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

// A 64 x 48 target and its z-buffer, a palette of distinct colours, a 9 x 9 flare (a
// cross on black), a flat-coloured material and a cube painted with it.
class Procedural3d : public EffectTest {
protected:
    Procedural3d() {
        addLayer32("screen", 64, 48, grey(0x10));
        add<Zbuffer>(std::make_unique<Zbuffer>(64, 48), "z");
        add<Material>(std::make_unique<Material>(), "mat").color = 0x00C08040;
        auto paint = std::make_shared<Material>();
        paint->color = 0x00C08040;
        add<Meshe>(cubeMesh(), "cube").bindAll(paint);
        Palette& palette = addPalette("pal");
        for (int i = 0; i < 256; ++i) palette.colors[i] = static_cast<std::uint32_t>(i) * 0x00010307u;
        Layer32bpp& flare = addLayer32("flare", 9, 9);
        for (int i = 0; i < 9; ++i)
            flare.row(4)[i] = flare.row(i)[4] = grey(0x40 + 0x10 * static_cast<std::uint32_t>(i));
    }
    Layer32bpp& screen() { return show.repository.aquireAs<Layer32bpp>("screen"); }
};

TEST_F(Procedural3d, EveryKeywordDrawsItsPinnedFrame) {
    const std::pair<const char*, std::uint64_t> cases[] = {
        {"wireframeFlower32bpp screen pal constVector3 0.4 0.9 0.2 constInt 32", 18314913140730198039ull},
        {"wireframeADN32bpp screen pal constVector3 0.3 0.5 1.2 constInt 33", 4453929464172817121ull},
        {"flareCube32bpp screen flare constVector3 0.5 0.7 0.1 constInt 33", 12107201561041673656ull},
        {"flareCube32bpp screen flare constVector3 0.5 0.7 0.1 constInt 32", 17082616944467067843ull},  // near over far
        {"lensflareSpline32bpp screen flare constVector3 60 -40 256 constInt 33", 6394773579340176611ull},
        {"cubeOfCubes32bpp screen z cube constVector3 0.5 0.7 0.1", 4861224863217307891ull},
        {"cubeOfCubesSinus32bpp screen z cube constVector3 0.5 0.7 0.1 constFloat 0.5", 17440464320295634179ull},
        {"cubesDelay32bpp screen z cube constVector3 0.5 0.7 0.1 0.3", 5491206061375410259ull},
        {"metaballs32bpp screen z mat constVector3 0 0 400", 4069429322291949347ull},
    };
    Zbuffer& z = show.repository.aquireAs<Zbuffer>("z");
    for (const auto& [line, expected] : cases) {
        std::fill_n(screen().pixels, screen().pixelCount(), grey(0x10));
        z.advanceStamp();
        make(line)->run(0.5f);
        EXPECT_EQ(checksumOf(screen()), expected) << line;
    }
}

// One ball: the surface is the sphere where (1 - d^2 / r^2)^2 = 1/4, d = r / sqrt 2; the
// triangles cover it once, their fronts facing out.
TEST_F(Procedural3d, MetaballSurfaceOfOneBallIsItsSphere) {
    const std::vector<Ball> balls{{{3, -2, 1}, 60}};
    const float d = 60 / std::sqrt(2.0f);
    MetaballSurface surface(32, 100, 20000);
    auto mesh = makeMetaballMesh(20000);
    surface.build(balls, *mesh, nullptr);
    ASSERT_GT(mesh->faceCount, 0);
    double area = 0;
    for (const Face& face : mesh->faces) {
        Vec3 p[3];
        for (int c = 0; c < 3; ++c) p[c] = {face.corners[c]->x, face.corners[c]->y, face.corners[c]->z};
        for (const Vec3& q : p) EXPECT_NEAR(std::sqrt(dot(q - balls[0].centre, q - balls[0].centre)), d, 0.9);
        const Vec3 front = cross(p[2] - p[0], p[1] - p[0]);
        EXPECT_GE(dot(front, (p[0] + p[1] + p[2]) * (1.0f / 3) - balls[0].centre), 0);
        area += std::sqrt(dot(front, front)) / 2;
    }
    EXPECT_NEAR(area / (4 * std::numbers::pi * d * d), 1.0, 0.02);
    EXPECT_EQ(mesh->vertexCount, 3 * mesh->faceCount);
    MetaballSurface capped(32, 100, 100);
    capped.build(balls, *mesh, nullptr);
    EXPECT_EQ(mesh->faceCount, 100);
}

// The copies of a mesh leave its own placement as they found it, for the players that
// draw it too; a light behind the camera shows no flare.
TEST_F(Procedural3d, CopiesRestoreTheMeshAndHiddenLightsDrawNothing) {
    Meshe& cube = show.repository.aquireAs<Meshe>("cube");
    cube.position = {1, 2, 3};
    cube.setUniformScale(4);
    cube.rotation = rotationFromAngles(0.1f, 0.2f, 0.3f);
    const Mat3 rotation = cube.rotation;
    make("cubesDelay32bpp screen z cube constVector3 0.5 0.7 0.1 0.3")->run(1);
    EXPECT_EQ(cube.position.z, 3);
    EXPECT_EQ(cube.scale.x, 4);
    EXPECT_EQ(cube.inverseScale.y, 0.25f);
    EXPECT_EQ(cube.rotation.rows[2].x, rotation.rows[2].x);
    std::fill_n(screen().pixels, screen().pixelCount(), grey(0x10));
    make("lensflareSpline32bpp screen flare constVector3 0 0 -100 constInt 33")->run(0);
    EXPECT_EQ(checksumOf(screen()), checksumOf(addLayer32("plain", 64, 48, grey(0x10))));
}

// The effects see through the mesh players' camera: "setFov" widens their view too, and
// the model draws smaller.
TEST_F(Procedural3d, TheFieldOfViewComesFromSetFov) {
    auto frame = [&](int fov) {
        show.settings<EngineSettings>().fov = fov;
        std::fill_n(screen().pixels, screen().pixelCount(), 0);
        make("wireframeADN32bpp screen pal constVector3 0.3 0.5 1.2 constInt 32")->run(0);
        return std::count(screen().pixels, screen().pixels + screen().pixelCount(), 0u);
    };
    EXPECT_GT(frame(2), frame(1));  // more of the target left black
}

TEST_F(Procedural3d, BadParametersNameTheKeyword) {
    add<Zbuffer>(std::make_unique<Zbuffer>(8, 8), "small");
    const std::pair<const char*, const char*> cases[] = {
        {"flareCube32bpp screen screen constVector3 0 0 0 constInt 33",
         "flareCube32bpp : target and source must be different layers"},
        {"wireframeADN32bpp screen flare constVector3 0 0 0 constInt 33", "Repository::aquire failure"},
        {"cubesDelay32bpp screen z flare constVector3 0 0 0 1", "Repository::aquire failure"},
        {"cubesDelay32bpp screen z cube constVector3 0 0 0 -2", "cubesDelay32bpp : delay -2 is not within 0 to 3600"},
        {"metaballs32bpp screen small mat constVector3 0 0 400",
         "metaballs32bpp : the zbuffer is 8x8, the target is 64x48"},
    };
    for (const auto& [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

}  // namespace
}  // namespace vz::test
