#include <gtest/gtest.h>

#include <cstdlib>

#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// The converter's meshes load as the scene's objects, in their own space, and its
// declaration names one mesh per object in file order.
TEST(Scene2AscTest, WritesObjectMeshesAndTheSceneDeclaration) {
    test::ScratchDir dir;
    test::writeFile("walk.ase",
                    "*HELPER_CLASS {\r\n\t*NODE_NAME \"Root Dummy\"\r\n}\r\n"
                    "*GEOMOBJECT {\r\n\t*NODE_NAME \"Tri\"\r\n\t*NODE_TM {\r\n\t\t*TM_ROW0 0 1 0\r\n"
                    "\t\t*TM_ROW1 -1 0 0\r\n\t\t*TM_ROW2 0 0 1\r\n\t\t*TM_ROW3 10 20 30\r\n\t}\r\n"
                    "\t*MESH {\r\n\t\t*MESH_NUMVERTEX 3\r\n\t\t*MESH_VERTEX_LIST {\r\n"
                    "\t\t\t*MESH_VERTEX 0 10 21 30\r\n\t\t\t*MESH_VERTEX 1 8 20 30\r\n\t\t\t*MESH_VERTEX 2 10 20 33\r\n"
                    "\t\t}\r\n\t\t*MESH_FACE_LIST {\r\n"
                    "\t\t\t*MESH_FACE 0: A: 0 B: 1 C: 2 AB: 1 BC: 0 CA: 1 *MESH_SMOOTHING 1 *MESH_MTLID 0\r\n"
                    "\t\t}\r\n\t\t*MESH_TVERTLIST {\r\n\t\t\t*MESH_TVERT 0 0.5 0.25 0\r\n"
                    "\t\t\t*MESH_TVERT 1 1 0 0\r\n\t\t}\r\n\t\t*MESH_TFACELIST {\r\n\t\t\t*MESH_TFACE 0 1 0 1\r\n"
                    "\t\t}\r\n\t}\r\n}\r\n");
    const std::string command = std::string(VZ_SCENE2ASC_PATH) + " walk.ase mat > out.txt";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(test::readLines("out.txt"),
              (std::vector<std::string>{"add walk_Root_Dummy Meshe walk_Root_Dummy.asc mat",
                                        "add walk_Tri Meshe walk_Tri.asc mat", "add walk SceneMax walk.ase",
                                        "walk_Root_Dummy", "walk_Tri"}));

    auto material = std::make_shared<Material>();
    auto tri = GenModels::loadModel("walk_Tri.asc", material);
    ASSERT_EQ(tri->vertexCount, 3);
    // World (10, 21, 30) less the position is (0, 1, 0): the object's x axis turned onto
    // the world's y, so (1, 0, 0) in its own space; stored with y and z swapped.
    const Vertex& v0 = tri->vertices[0];
    EXPECT_NEAR(v0.x, 1, 1e-6);
    EXPECT_NEAR(v0.y, 0, 1e-6);
    EXPECT_NEAR(v0.z, 0, 1e-6);
    EXPECT_NEAR(tri->vertices[1].z, 2, 1e-6);  // world (8, 20, 30): own (0, 2, 0)
    EXPECT_NEAR(tri->vertices[2].y, 3, 1e-6);  // world (10, 20, 33): own (0, 0, 3)
    // Mapping from the first corner using each vertex; v flipped by the loader.
    EXPECT_FLOAT_EQ(tri->vertices[0].u, 1);
    EXPECT_FLOAT_EQ(tri->vertices[1].u, 0.5f);
    EXPECT_FLOAT_EQ(tri->vertices[1].v, 0.75f);
    EXPECT_EQ(tri->edgeCount, 2);
    EXPECT_EQ(GenModels::loadModel("walk_Root_Dummy.asc", material)->faceCount, 1);
}

}  // namespace
}  // namespace vz
