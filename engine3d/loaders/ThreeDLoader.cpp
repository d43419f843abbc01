#include "engine3d/loaders/ThreeDLoader.hpp"

#include "core/logstream.hpp"
#include "engine3d/loaders/MeshFileChecks.hpp"

namespace vz {

std::unique_ptr<Meshe> load3d(const std::string& fileName, const std::shared_ptr<Material>& material) {
    const char* reader = "load3d";
    TextParser parser;
    parser.open(fileName);
    requireLine(reader, parser, "the counts");
    const int vertexCount = checkedCount(reader, parser, "vertex", parser.getInt());
    const int faceCount = checkedCount(reader, parser, "face", parser.getInt());
    auto mesh = std::make_unique<Meshe>(vertexCount, faceCount, 0);
    logout() << "load3d : objet created" << lend;
    logout() << vertexCount << " verts - " << faceCount << " polys" << lend;

    for (int i = 0; i < vertexCount; ++i) {
        requireLine(reader, parser, "vertex " + std::to_string(i) + " of " + std::to_string(vertexCount));
        Vertex& v = mesh->vertices[static_cast<std::size_t>(i)];
        v.x = parser.getFloat();
        v.z = parser.getFloat();  // the file's second and third axes swap
        v.y = parser.getFloat();
        v.u = parser.getFloat();
        v.v = 1.0f - parser.getFloat();
        v.state = 0;
    }
    logout() << "load3d : vertices copied" << lend;

    for (int i = 0; i < faceCount; ++i) {
        requireLine(reader, parser, "face " + std::to_string(i) + " of " + std::to_string(faceCount));
        Face& face = mesh->faces[static_cast<std::size_t>(i)];
        int corner[3];
        for (int& c : corner) c = checkedIndex(reader, parser, parser.getInt(), vertexCount);
        for (int k = 0; k < 4; ++k) face.corners[static_cast<std::size_t>(k)] = &mesh->vertices[corner[k % 3]];
        face.vertexCount = 3;
        mesh->bind(face, material);
    }
    mesh->edgeCount = 0;
    logout() << "load3d : well done" << lend;
    return mesh;
}

}  // namespace vz
