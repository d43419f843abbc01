#include "engine3d/Transform.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "core/Layer.hpp"
#include "script/Material.hpp"

namespace vz {
namespace {

// A mesh of free triangles, given corner by corner in engine axes (x right, y up, z away).
class FrontEndTest : public ::testing::Test {
protected:
    FrontEndTest() : target(64, 40) { camera.fov = 1; }

    Meshe& mesh(std::vector<Vec3> corners, bool doubleFace = false) {
        const int faces = static_cast<int>(corners.size() / 3);
        owned = std::make_unique<Meshe>(faces * 3, faces, 0);
        material->doubleFace = doubleFace;
        for (int i = 0; i < faces * 3; ++i) {
            Vertex& v = owned->vertices[static_cast<std::size_t>(i)];
            v.x = corners[i].x, v.y = corners[i].y, v.z = corners[i].z;
            v.u = static_cast<float>(i);
        }
        for (int f = 0; f < faces; ++f)
            for (int k = 0; k < 4; ++k) owned->faces[f].corners[k] = &owned->vertices[f * 3 + k % 3];
        owned->bindAll(material);
        owned->position = {0, 0, 0};
        return *owned;
    }
    RenderContext& project(Meshe& m, bool lowQuality = false) {
        context.lowQuality = lowQuality;
        beginFrame(context, camera, target);
        addMeshe(context, m, 0);
        sortFarToNear(context);
        return context;
    }

    Layer32bpp target;
    Camera camera;
    RenderContext context;
    std::shared_ptr<Material> material = std::make_shared<Material>();
    std::unique_ptr<Meshe> owned;
};

// A front face (anticlockwise as the camera sees it, y up) at distance z.
std::vector<Vec3> frontFace(float z, float size = 50) { return {{-size, 0, z}, {size, 0, z}, {0, size, z}}; }

TEST_F(FrontEndTest, ProjectsWithSquarePixelsAndDepthInverseToDistance) {
    RenderContext& c = project(mesh(frontFace(256)));
    ASSERT_EQ(c.faces.size(), 1u);
    ASSERT_EQ(c.faces[0].count, 3);
    const double focal = 1 / std::tan(0.5);
    const ProjectedVertex& right = c.vertices[1];
    const ProjectedVertex& top = c.vertices[2];
    EXPECT_FLOAT_EQ(right.px, static_cast<float>(focal * 50 / 256));
    // 50 units up span as many pixels as 50 units across: py is scaled by width / height.
    EXPECT_FLOAT_EQ(top.py * 20, -right.px * 32);
    EXPECT_FLOAT_EQ(right.depth, static_cast<float>(nearDepth / 256));
    EXPECT_EQ(right.u, 1.0f);  // attributes ride along with their corner
    EXPECT_EQ(c.viewport.centreX, 32.0f);
    EXPECT_EQ(c.viewport.scaleY, 20.0f);
    EXPECT_EQ(c.viewport.pitch, 64);
}

TEST_F(FrontEndTest, BackFacesGoUnlessDoubleFacedWhichAreTurned) {
    std::vector<Vec3> back = frontFace(256);
    std::swap(back[1], back[2]);
    EXPECT_TRUE(project(mesh(back)).faces.empty());
    RenderContext& c = project(mesh(back, true));
    ASSERT_EQ(c.faces.size(), 1u);
    // Walked the other way round, so the rasterizer sees the drawn winding.
    EXPECT_EQ(c.vertices[0].u, 2.0f);
    EXPECT_EQ(c.vertices[2].u, 0.0f);
}

TEST_F(FrontEndTest, AFaceThroughTheCameraPlaneIsClippedAtTheNearPlane) {
    // One corner far ahead, two behind the camera.
    RenderContext& c = project(mesh({{-0.2f, -0.2f, -10}, {0.2f, -0.2f, -10}, {0, 0.1f, 20}}));
    ASSERT_EQ(c.faces.size(), 1u);
    const VisibleFace& f = c.faces[0];
    int onNearPlane = 0;
    for (int i = f.first; i < f.first + f.count; ++i) {
        const ProjectedVertex& v = c.vertices[static_cast<std::size_t>(i)];
        EXPECT_GT(v.depth, 0.0f);
        EXPECT_LE(v.depth, static_cast<float>(nearDepth));
        EXPECT_GE(v.px, -1.0f);
        EXPECT_LE(v.px, 1.0f);
        onNearPlane += v.depth == static_cast<float>(nearDepth);
    }
    EXPECT_GE(onNearPlane, 2);
    // Wholly behind the camera: nothing.
    EXPECT_TRUE(project(mesh({{-5, -5, -10}, {5, -5, -10}, {0, 1, -2}})).faces.empty());
}

TEST_F(FrontEndTest, FacesAreSortedFarToNearTiesKeepTheirOrder) {
    std::vector<Vec3> corners;
    for (float z : {100.f, 300.f, 100.f, 200.f})
        for (const Vec3& c : frontFace(z)) corners.push_back(c);
    RenderContext& c = project(mesh(corners));
    std::vector<float> firstU;
    for (const VisibleFace& f : c.faces) firstU.push_back(c.vertices[static_cast<std::size_t>(f.first)].u);
    EXPECT_EQ(firstU, (std::vector<float>{3, 9, 0, 6}));
}

TEST_F(FrontEndTest, LowQualityProjectsTheSameCornersInFloat) {
    Meshe& m = mesh({{-70, -33, 180}, {90, -10, 300}, {5, 60, 240}});
    m.rotation = rotationFromAngles(0.3f, -0.7f, 1.1f);
    m.position = {10, -5, 20};
    const std::vector<ProjectedVertex> full = project(m).vertices;
    m.lastTime = -1;
    const std::vector<ProjectedVertex>& low = project(m, true).vertices;
    ASSERT_EQ(full.size(), low.size());
    for (std::size_t i = 0; i < full.size(); ++i) {
        EXPECT_NEAR(full[i].px, low[i].px, 1e-5);
        EXPECT_NEAR(full[i].py, low[i].py, 1e-5);
        EXPECT_NEAR(full[i].depth, low[i].depth, 1e-9);
    }
}

TEST(Hierarchy, ChildrenArePushedAtTheFrontAndRootsForgetTheirPlace) {
    Object3D parent, first, second;
    linkUnder(first, &parent);
    linkUnder(second, &parent);
    EXPECT_EQ(parent.firstChild, &second);
    EXPECT_EQ(second.nextSibling, &first);
    EXPECT_EQ(second.parent, &parent);
    linkUnder(second, nullptr);
    EXPECT_EQ(second.parent, nullptr);
    EXPECT_EQ(second.nextSibling, nullptr);
}

}  // namespace
}  // namespace vz
