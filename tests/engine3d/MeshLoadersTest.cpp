#include "engine3d/loaders/GenModels.hpp"

#include <gtest/gtest.h>

#include "core/error.hpp"
#include "script/Material.hpp"
#include "script/Repository.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

constexpr const char* mappedCube =
    "Named object: \"plate\"\n"
    "Tri-mesh, Vertices: 3     Faces: 2\n"
    "Mapped\n"
    "Vertex list:\n"
    "Vertex 0:  X:1 Y:2 Z:3  U:0.25 V:0.25\n"
    "Vertex 1:  X:4 Y:5 Z:6  U:0.5 V:0.2\n"
    "Vertex 2:  X:-1 Y:0 Z:0.5  U:0 V:1\n"
    "Face list:\n"
    "Face 0:    A:0 B:1 C:2 AB:1 BC:0 CA:1\n"
    "Material:\"red\"\n"
    "Smoothing:  1\n"
    "Face 1:    A:2 B:1 C:0 AB:1 BC:1 CA:1\n"
    "Material: \"blue\"\n";

// The lines logged since startLog(), without the log's own opening and closing lines.
std::vector<std::string> loggedLines() {
    auto lines = test::stopLogAndReadLines();
    return {lines.begin() + 2, lines.end() - 3};
}

class MeshLoadersTest : public ::testing::Test {
protected:
    MeshLoadersTest() {
        for (const char* name : {"red", "blue"}) {
            test::writeFile(std::string(name) + ".txt",
                            std::string("id ") + (name[0] == 'r' ? "texture32bpp" : "gouraud32bpp") + "\n");
            repository.add(std::make_unique<Symbol>(Material::load(std::string(name) + ".txt", repository)), name);
        }
        material = std::static_pointer_cast<Material>(repository.find("red")->shared());
    }
    std::unique_ptr<Meshe> load(const std::string& name, const std::string& content) {
        test::writeFile(name, content);
        return GenModels::loadModel(name, material);
    }

    test::ScratchDir dir;
    Repository repository;
    std::shared_ptr<Material> material;
};

TEST_F(MeshLoadersTest, AscSwapsTheAxesFlipsVAndKeepsTheMarkedEdgesInOrder) {
    test::startLog();
    auto mesh = load("plate.asc", mappedCube);
    EXPECT_EQ(loggedLines(), (std::vector<std::string>{"loadAsc : objet created", "3 verts - 2 polys",
                                                       "loadAsc : vertices copied", "loadAsc : well done"}));
    const Vertex& v = mesh->vertices[0];
    EXPECT_EQ((std::vector<float>{v.x, v.y, v.z, v.u, v.v}), (std::vector<float>{1, 3, 2, 0.25f, 0.75f}));
    EXPECT_FLOAT_EQ(mesh->vertices[1].v, 0.8f);
    // AB and CA of face 0, then all three of face 1; room was made for 3 x faceCount.
    ASSERT_EQ(mesh->edgeCount, 5);
    ASSERT_EQ(mesh->edges.size(), 6u);
    std::vector<std::pair<int, int>> edges;
    for (int i = 0; i < mesh->edgeCount; ++i)
        edges.emplace_back(mesh->indexOf(mesh->edges[i].from), mesh->indexOf(mesh->edges[i].to));
    EXPECT_EQ(edges, (std::vector<std::pair<int, int>>{{0, 1}, {2, 0}, {2, 1}, {1, 0}, {0, 2}}));
    const Face& f = mesh->faces[1];
    EXPECT_EQ(f.corners[0], f.corners[3]);
    EXPECT_EQ(f.corners[0], &mesh->vertices[2]);
    EXPECT_EQ(f.material, material.get());
    EXPECT_EQ(f.materialId, 0);
    EXPECT_EQ(mesh->position.z, 256.0f);
    EXPECT_EQ(mesh->lastTime, -1.0f);
}

TEST_F(MeshLoadersTest, AscMaterialBindsEachFaceToTheMaterialItNames) {
    test::writeFile("plate.asc", mappedCube);
    test::startLog();
    auto mesh = GenModels::loadModelMaterial("plate.asc", repository);
    EXPECT_EQ(loggedLines(),
              (std::vector<std::string>{"loadAscMaterial : objet created", "3 verts - 2 polys",
                                        "loadAscMaterial : vertices copied", "loadAscMaterial : well done"}));
    EXPECT_EQ(mesh->faces[0].material, repository.find("red")->getData());
    EXPECT_EQ(mesh->faces[1].material, repository.find("blue")->getData());
    EXPECT_EQ(mesh->faces[1].materialId, 6);
}

TEST_F(MeshLoadersTest, AnUnmappedAscMayStartItsVerticesRightAfterTheCounts) {
    auto mesh = load("bare.asc",
                     "Tri-mesh, Vertices: 3 Faces: 1\nVertex 0: X:1 Y:2 Z:3\nVertex 1: X:4 Y:5 Z:6\n"
                     "Vertex 2: X:7 Y:8 Z:9\nFace 0: A:0 B:1 C:2 AB:0 BC:0 CA:0\n");
    EXPECT_EQ((std::vector<float>{mesh->vertices[0].x, mesh->vertices[2].y, mesh->vertices[2].u}),
              (std::vector<float>{1, 9, 0}));
    EXPECT_EQ(mesh->edgeCount, 0);
}

TEST_F(MeshLoadersTest, ThreeDHasNoEdgesAndTheSameAxisConvention) {
    test::startLog();
    auto mesh = load("tri.3d", "3 1\n1 2 3 0.25 0.25\n0 0 1 0 0\n1 0 0 1 1\n0 2 1\n");
    EXPECT_EQ(loggedLines(), (std::vector<std::string>{"load3d : objet created", "3 verts - 1 polys",
                                                       "load3d : vertices copied", "load3d : well done"}));
    const Vertex& v = mesh->vertices[0];
    EXPECT_EQ((std::vector<float>{v.x, v.y, v.z, v.u, v.v}), (std::vector<float>{1, 3, 2, 0.25f, 0.75f}));
    EXPECT_EQ(mesh->edgeCount, 0);
    EXPECT_TRUE(mesh->edges.empty());
    EXPECT_EQ(mesh->faces[0].corners[1], &mesh->vertices[2]);
}

TEST_F(MeshLoadersTest, BadFilesAreErrorsNamingTheFileAndLine) {
    const std::string header = "Tri-mesh, Vertices: 2 Faces: 1\nVertex list:\n";
    const std::string twoVertices = header + "Vertex 0: X:0 Y:0 Z:0\nVertex 1: X:1 Y:0 Z:0\n";
    struct Case {
        const char* name;
        std::string content;
        std::string error;
    };
    const Case cases[] = {
        {"none.asc", "Named object\n", "loadAsc : none.asc:2: Bad file format, no mesh in the file"},
        {"zero.asc", "Tri-mesh, Vertices: 0 Faces: 1\n", "loadAsc : zero.asc:1: Bad file format, no mesh in the file"},
        {"minus.asc", "Tri-mesh, Vertices: -3 Faces: 1\n",
         "loadAsc : minus.asc:1: vertex count -3 is not within 0 to 1048576"},
        {"huge.3d", "5 99999999\n", "load3d : huge.3d:1: face count 99999999 is not within 0 to 1048576"},
        {"short.asc", header + "Vertex 0: X:0 Y:0 Z:0\n", "loadAsc : short.asc:4: the file ends before vertex 1 of 2"},
        {"index.asc", twoVertices + "Face 0: A:0 B:1 C:2 AB:1 BC:1 CA:1\n",
         "loadAsc : index.asc:5: vertex index 2 is not within 0 to 1"},
        {"label.asc", header + "Vertex 0: X:0 Z:0 Y:0\n", "loadAsc : label.asc:3: expected Y:%f, read Z:0"},
        {"noface.asc", twoVertices, "loadAsc : noface.asc:5: the file ends before face 0 of 1"},
        {"short.3d", "2 1\n0 0 0 0 0\n", "load3d : short.3d:3: the file ends before vertex 1 of 2"},
        {"index.3d", "1 1\n0 0 0 0 0\n0 -1 0\n", "load3d : index.3d:3: vertex index -1 is not within 0 to 0"},
        {"scene.old.asc", mappedCube, "GenModels::loadModel : unknow file extention"},
        {"plate.ASC", mappedCube, "GenModels::loadModel : unknow file extention"},
    };
    for (const Case& c : cases) EXPECT_EQ(test::errorOf([&] { load(c.name, c.content); }), c.error) << c.name;

    test::writeFile("tri.3d", "1 0\n0 0 0 0 0\n");
    EXPECT_EQ(test::errorOf([&] { GenModels::loadModelMaterial("tri.3d", repository); }),
              "GenModels::loadModelMaterial : unknow file extention");
    test::writeFile("bare.asc",
                    twoVertices + "Face 0: A:0 B:1 C:1 AB:0 BC:0 CA:0\nFace 1: A:0 B:1 C:1 AB:0 BC:0 CA:0\n");
    EXPECT_EQ(test::errorOf([&] { GenModels::loadModelMaterial("bare.asc", repository); }),
              "loadAscMaterial : bare.asc:6: the face before this line names no Material:");
}

TEST_F(MeshLoadersTest, AscWithoutMeshLogsBadFileFormatThenFails) {
    test::startLog();
    test::errorOf([&] { load("none.asc", "nothing here\n"); });
    std::vector<std::string> expected{"loadAsc : Bad file format"};
    for (const std::string& line : test::framed("loadAsc : none.asc:2: Bad file format, no mesh in the file"))
        expected.push_back(line);
    EXPECT_EQ(loggedLines(), expected);
}

}  // namespace
}  // namespace vz
