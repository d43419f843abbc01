#include "engine3d/loaders/AscLoader.hpp"

#include <cstdio>
#include <cstring>
#include <functional>

#include "core/logstream.hpp"
#include "engine3d/loaders/MeshFileChecks.hpp"
#include "script/Material.hpp"
#include "script/Repository.hpp"

namespace vz {

namespace {

// How the faces of one reading get their material.
using BindFace = std::function<void(Meshe&, Face&, TextParser&)>;

// Goes to the next line whose first token is `word`, and past its second token (the
// number of a vertex or face, the first label of the counts). The "Vertex list:" and
// "Face list:" headers of the format are not such lines. False at the end of the file.
bool seekLine(TextParser& parser, const char* word) {
    while (parser.nextLine()) {
        if (std::strcmp(parser.getToken(), word) != 0 || !parser.tokensLeft()) continue;
        if (std::strcmp(parser.getToken(), "list:") != 0) return true;
    }
    return false;
}

// The next token read with `pattern` ("X:%f", "A:%d"): the label must touch the number.
template <class T>
T scanned(const char* reader, TextParser& parser, const char* pattern) {
    T value{};
    const char* token = parser.getToken();
    if (std::sscanf(token, pattern, &value) != 1)
        meshFileError(reader, parser, std::string("expected ") + pattern + ", read " + token);
    return value;
}

// `onFirst`: the parser already stands on the first vertex's line, past its number.
void readVertices(const char* reader, TextParser& parser, Meshe& mesh, bool mapped, bool onFirst) {
    for (int i = 0; i < mesh.vertexCount; ++i) {
        if (!(i == 0 && onFirst) && !seekLine(parser, "Vertex"))
            meshFileError(
                reader, parser,
                "the file ends before vertex " + std::to_string(i) + " of " + std::to_string(mesh.vertexCount));
        Vertex& v = mesh.vertices[static_cast<std::size_t>(i)];
        v.x = scanned<float>(reader, parser, "X:%f");
        v.z = scanned<float>(reader, parser, "Y:%f");  // the file's second and third axes swap
        v.y = scanned<float>(reader, parser, "Z:%f");
        if (mapped) {
            v.u = scanned<float>(reader, parser, "U:%f");
            v.v = 1.0f - scanned<float>(reader, parser, "V:%f");
        }
        v.state = 0;
    }
}

void readFaces(const char* reader, TextParser& parser, Meshe& mesh, const BindFace& bindFace) {
    int edgeCount = 0;
    for (int i = 0; i < mesh.faceCount; ++i) {
        if (!seekLine(parser, "Face"))
            meshFileError(reader, parser,
                          "the file ends before face " + std::to_string(i) + " of " + std::to_string(mesh.faceCount));
        Face& face = mesh.faces[static_cast<std::size_t>(i)];
        int corner[3];
        for (int k = 0; k < 3; ++k) {
            static constexpr const char* patterns[3] = {"A:%d", "B:%d", "C:%d"};
            corner[k] = checkedIndex(reader, parser, scanned<int>(reader, parser, patterns[k]), mesh.vertexCount);
        }
        for (int k = 0; k < 4; ++k) face.corners[static_cast<std::size_t>(k)] = &mesh.vertices[corner[k % 3]];
        face.vertexCount = 3;
        static constexpr const char* flags[3] = {"AB:%d", "BC:%d", "CA:%d"};
        for (int k = 0; k < 3; ++k)
            if (scanned<int>(reader, parser, flags[k]) != 0)
                mesh.edges[static_cast<std::size_t>(edgeCount++)] = {face.corners[k], face.corners[k + 1]};
        bindFace(mesh, face, parser);
    }
    mesh.edgeCount = edgeCount;
}

std::unique_ptr<Meshe> readAsc(const char* reader, const std::string& fileName, const BindFace& bindFace) {
    TextParser parser;
    parser.open(fileName);
    const std::string name = reader;
    auto badFormat = [&] {
        logout() << name << " : Bad file format" << lend;
        meshFileError(reader, parser, "Bad file format, no mesh in the file");
    };
    if (!seekLine(parser, "Tri-mesh,")) badFormat();
    const int vertexCount = checkedCount(reader, parser, "vertex", parser.getInt());
    parser.getToken();
    const int faceCount = checkedCount(reader, parser, "face", parser.getInt());
    if (vertexCount == 0 || faceCount == 0) badFormat();

    auto mesh = std::make_unique<Meshe>(vertexCount, faceCount, 3 * faceCount);
    logout() << name << " : objet created" << lend;
    logout() << vertexCount << " verts - " << faceCount << " polys" << lend;
    // The line after the counts says whether the vertices are mapped; without that word it
    // may already be the first vertex.
    bool mapped = false, onFirstVertex = false;
    if (parser.nextLine()) {
        const std::string first = parser.getTokenCopy();
        mapped = first == "Mapped";
        onFirstVertex = first == "Vertex" && parser.tokensLeft() && std::strcmp(parser.getToken(), "list:") != 0;
    }
    readVertices(reader, parser, *mesh, mapped, onFirstVertex);
    logout() << name << " : vertices copied" << lend;
    readFaces(reader, parser, *mesh, bindFace);
    logout() << name << " : well done" << lend;
    return mesh;
}

// The material named on the line after a face: "Material:" then "name" in quotes (or
// glued to the label).
void bindNamedMaterial(Repository& repository, Meshe& mesh, Face& face, TextParser& parser) {
    const char* reader = "loadAscMaterial";
    for (;;) {
        if (!parser.nextLine()) meshFileError(reader, parser, "the file ends before the face's Material: line");
        const std::string first = parser.getTokenCopy();
        if (first == "Face") meshFileError(reader, parser, "the face before this line names no Material:");
        if (first.rfind("Material:", 0) != 0) continue;
        std::string symbol = first.size() > 9 ? first.substr(9) : parser.getTokenCopy();
        if (symbol.size() >= 2 && symbol.front() == '"' && symbol.back() == '"')
            symbol = symbol.substr(1, symbol.size() - 2);
        mesh.bind(face, sharedMaterial(repository, symbol));
        return;
    }
}

}  // namespace

std::unique_ptr<Meshe> loadAsc(const std::string& fileName, const std::shared_ptr<Material>& material) {
    return readAsc("loadAsc", fileName, [&](Meshe& mesh, Face& face, TextParser&) { mesh.bind(face, material); });
}

std::unique_ptr<Meshe> loadAscMaterial(const std::string& fileName, Repository& repository) {
    return readAsc("loadAscMaterial", fileName, [&](Meshe& mesh, Face& face, TextParser& parser) {
        bindNamedMaterial(repository, mesh, face, parser);
    });
}

}  // namespace vz
