#include "engine3d/MeshPreparation.hpp"

#include <gtest/gtest.h>

#include "core/Layer.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// A right-angled wedge: a face turned to the viewer (file Y = 0, so engine z = 0) and one
// in the plane x = 10 turned to the right, sharing vertices 1 and 2.
constexpr const char* wedge =
    "Tri-mesh, Vertices: 4 Faces: 2\nVertex list:\n"
    "Vertex 0: X:0 Y:0 Z:0\nVertex 1: X:10 Y:0 Z:0\nVertex 2: X:10 Y:0 Z:10\nVertex 3: X:10 Y:10 Z:10\n"
    "Face 0: A:0 B:1 C:2 AB:0 BC:0 CA:0\nFace 1: A:2 B:1 C:3 AB:0 BC:0 CA:0\n";

TEST(MeshPreparation, NormalsFaceTheDrawnSideAndTheRestFollows) {
    test::ScratchDir dir;
    test::writeFile("wedge.asc", wedge);
    auto material = std::make_shared<Material>();
    material->color = 0x00102030;
    auto mesh = GenModels::loadModel("wedge.asc", material);
    prepareMesh(*mesh);

    // Face 0 is drawn by a camera at the origin looking along z: its front faces the camera.
    Camera camera;
    Layer32bpp target(64, 40);
    RenderContext context;
    beginFrame(context, camera, target);
    mesh->position = {0, 0, 100};
    addMeshe(context, *mesh, 0);
    ASSERT_FALSE(context.faces.empty());
    const Vec3& n0 = mesh->faces[0].normal;
    EXPECT_EQ((std::vector<float>{n0.x, n0.y, n0.z}), (std::vector<float>{0, 0, -1}));
    const Vec3& n1 = mesh->faces[1].normal;
    EXPECT_EQ((std::vector<float>{n1.x, n1.y, n1.z}), (std::vector<float>{1, 0, 0}));

    // Vertex 1 belongs to both faces, vertex 0 to face 0 only.
    const Vec3& shared = mesh->vertexNormals[1];
    EXPECT_FLOAT_EQ(shared.x, std::sqrt(0.5f));
    EXPECT_FLOAT_EQ(shared.z, -std::sqrt(0.5f));
    EXPECT_EQ(mesh->vertexNormals[0].z, -1.0f);

    EXPECT_EQ((std::vector<float>{mesh->boundCentre.x, mesh->boundCentre.y, mesh->boundCentre.z}),
              (std::vector<float>{5, 5, 5}));
    EXPECT_FLOAT_EQ(mesh->boundRadius, std::sqrt(75.0f));

    const Vertex& v = mesh->vertices[3];
    EXPECT_EQ((std::vector<float>{v.u2, v.v2, v.r, v.g, v.b}), (std::vector<float>{v.u, v.v, 0x10, 0x20, 0x30}));
}

TEST(SegmentClipping, ASegmentThroughTheCameraPlaneKeepsItsFrontPartOnly) {
    Camera camera;
    Layer32bpp target(64, 40);
    RenderContext context;
    beginFrame(context, camera, target);
    ProjectedPoint a, b;
    ASSERT_TRUE(projectSegment(context, {0, 0, -50}, {0, 0, 100}, a, b));
    EXPECT_FLOAT_EQ(a.depth, static_cast<float>(nearDepth));
    EXPECT_FLOAT_EQ(b.depth, static_cast<float>(nearDepth / 100));
    // Across the whole view and beyond: held on the target's sides.
    ASSERT_TRUE(projectSegment(context, {-1000, 5, 100}, {1000, 5, 100}, a, b));
    EXPECT_EQ(std::make_pair(a.px, b.px), std::make_pair(-1.0f, 1.0f));
    EXPECT_FALSE(projectSegment(context, {0, 0, -5}, {3, 0, 0.5}, a, b));
    EXPECT_FALSE(projectSegment(context, {-1000, 0, 10}, {-900, 0, 10}, a, b));
}

}  // namespace
}  // namespace vz
