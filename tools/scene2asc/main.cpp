// scene2asc: turns the meshes of an ASCII scene export into "asc" mesh files and prints
// the script lines that declare them and the scene, one mesh symbol per object in the
// order the scene loader binds them:
//
//   scene2asc scene.ase MATERIAL [PREFIX]
//
// writes PREFIX<object>.asc for every *GEOMOBJECT and *HELPER_CLASS (PREFIX defaults to
// the export's name without its extension, plus "_") and prints
//
//   add PREFIX<object> Meshe PREFIX<object>.asc MATERIAL     one per object
//   add PREFIX SceneMax scene.ase                            then one symbol per line
//   PREFIX<object>
//
// Vertices are written in the object's own space (the export gives them in the world's:
// the inverse of the object's *NODE_TM rows is applied), so the scene's tracks place them.
// A vertex takes the mapping of the first face corner that uses it. Edge flags are kept.
// A helper, or an object without faces, gets one point-sized face: it places its
// children and draws nothing. Names become symbols with their spaces turned into "_".
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Corner {
    int a = 0, b = 0, c = 0, ab = 0, bc = 0, ca = 0;
};

struct Object {
    std::string name;
    double tm[4][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}};
    bool tmSet = false;
    std::vector<std::array<double, 3>> vertices;
    std::vector<std::array<double, 2>> tvertices;
    std::vector<Corner> faces;
    std::vector<std::array<int, 3>> tfaces;
};

std::vector<std::string> tokensOf(const std::string& line) {
    std::vector<std::string> tokens;
    std::size_t i = 0;
    while (i < line.size()) {
        if (std::isspace(static_cast<unsigned char>(line[i]))) {
            ++i;
        } else if (line[i] == '"') {
            const std::size_t end = line.find('"', i + 1);
            tokens.push_back(line.substr(i + 1, end == std::string::npos ? std::string::npos : end - i - 1));
            i = end == std::string::npos ? line.size() : end + 1;
        } else {
            std::size_t end = i;
            while (end < line.size() && !std::isspace(static_cast<unsigned char>(line[end]))) ++end;
            tokens.push_back(line.substr(i, end - i));
            i = end;
        }
    }
    return tokens;
}

[[noreturn]] void fail(const std::string& where, const std::string& what) {
    std::cerr << "scene2asc: " << where << ": " << what << "\n";
    std::exit(1);
}

double number(const std::vector<std::string>& t, std::size_t i, const std::string& where) {
    if (i >= t.size()) fail(where, t[0] + " has too few values");
    char* end = nullptr;
    const double v = std::strtod(t[i].c_str(), &end);
    if (end == t[i].c_str() || *end != 0 || !std::isfinite(v)) fail(where, "\"" + t[i] + "\" is not a number");
    return v;
}

// The value after a label such as "A:" in a *MESH_FACE line.
int labelled(const std::vector<std::string>& t, const char* label, const std::string& where) {
    for (std::size_t i = 0; i + 1 < t.size(); ++i)
        if (t[i] == label) return static_cast<int>(number(t, i + 1, where));
    fail(where, std::string("no ") + label);
}

int index(double v, std::size_t size, const std::string& where) {
    if (!(v >= 0 && v < static_cast<double>(size))) fail(where, "an index is outside its list");
    return static_cast<int>(v);
}

std::vector<Object> read(const std::string& fileName) {
    std::ifstream in(fileName, std::ios::binary);
    if (!in) fail(fileName, "can not open");
    std::vector<Object> objects;
    int depth = 0, objectDepth = -1, lineNumber = 0;
    std::string line;
    while (std::getline(in, line)) {
        ++lineNumber;
        const std::string where = fileName + ":" + std::to_string(lineNumber);
        const std::vector<std::string> t = tokensOf(line);
        const int lineDepth = depth;
        for (const std::string& token : t) {
            if (token == "{") ++depth;
            if (token == "}" && --depth <= objectDepth) objectDepth = -1;
        }
        if (t.empty()) continue;
        if (t[0] == "*GEOMOBJECT" || t[0] == "*HELPER_CLASS") {
            objects.emplace_back();
            objectDepth = lineDepth;
            continue;
        }
        if (objectDepth < 0 || objects.empty()) continue;
        Object& o = objects.back();
        if (t[0] == "*NODE_NAME" && o.name.empty() && t.size() > 1) {
            o.name = t[1];
        } else if (t[0].rfind("*TM_ROW", 0) == 0 && t[0].size() == 8 && !o.tmSet) {
            const int row = t[0][7] - '0';
            if (row < 0 || row > 3) continue;
            for (int c = 0; c < 3; ++c) o.tm[row][c] = number(t, 1 + c, where);
            if (row == 3) o.tmSet = true;  // the first *NODE_TM is the object's
        } else if (t[0] == "*MESH_VERTEX") {
            o.vertices.push_back({number(t, 2, where), number(t, 3, where), number(t, 4, where)});
        } else if (t[0] == "*MESH_TVERT") {
            o.tvertices.push_back({number(t, 2, where), number(t, 3, where)});
        } else if (t[0] == "*MESH_FACE") {
            o.faces.push_back({labelled(t, "A:", where), labelled(t, "B:", where), labelled(t, "C:", where),
                               labelled(t, "AB:", where), labelled(t, "BC:", where), labelled(t, "CA:", where)});
        } else if (t[0] == "*MESH_TFACE") {
            o.tfaces.push_back({static_cast<int>(number(t, 2, where)), static_cast<int>(number(t, 3, where)),
                                static_cast<int>(number(t, 4, where))});
        }
    }
    for (Object& o : objects)
        for (const Corner& f : o.faces)
            for (int v : {f.a, f.b, f.c}) index(v, o.vertices.size(), fileName + ": " + o.name);
    return objects;
}

// World to object space: p = local R + row3 (row vectors), so local = (p - row3) R^-1.
std::array<double, 3> toLocal(const Object& o, const std::array<double, 3>& p) {
    const double(*m)[3] = o.tm;
    const double det = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                       m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                       m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
    if (std::fabs(det) < 1e-12) return p;
    const double d[3] = {p[0] - m[3][0], p[1] - m[3][1], p[2] - m[3][2]};
    double inv[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            const int r1 = (c + 1) % 3, r2 = (c + 2) % 3, c1 = (r + 1) % 3, c2 = (r + 2) % 3;
            inv[r][c] = (m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1]) / det;
        }
    return {d[0] * inv[0][0] + d[1] * inv[1][0] + d[2] * inv[2][0],
            d[0] * inv[0][1] + d[1] * inv[1][1] + d[2] * inv[2][1],
            d[0] * inv[0][2] + d[1] * inv[1][2] + d[2] * inv[2][2]};
}

std::string ascOf(const Object& o) {
    std::ostringstream out;
    out.precision(7);
    if (o.faces.empty()) {
        out << "Named object: \"" << o.name << "\"\nTri-mesh, Vertices: 3     Faces: 1\nVertex list:\n";
        for (int i = 0; i < 3; ++i) out << "Vertex " << i << ":  X:0     Y:0     Z:0\n";
        out << "Face list:\nFace 0:    A:0 B:1 C:2 AB:0 BC:0 CA:0\n";
        return out.str();
    }
    const bool mapped = !o.tvertices.empty() && o.tfaces.size() == o.faces.size();
    std::vector<std::array<double, 2>> uv(o.vertices.size(), {0, 0});
    std::vector<bool> taken(o.vertices.size(), false);
    for (std::size_t f = 0; mapped && f < o.faces.size(); ++f) {
        const int corners[3] = {o.faces[f].a, o.faces[f].b, o.faces[f].c};
        for (int k = 0; k < 3; ++k) {
            const int t = o.tfaces[f][k];
            if (taken[corners[k]] || t < 0 || t >= static_cast<int>(o.tvertices.size())) continue;
            uv[corners[k]] = o.tvertices[t];
            taken[corners[k]] = true;
        }
    }
    out << "Named object: \"" << o.name << "\"\nTri-mesh, Vertices: " << o.vertices.size()
        << "     Faces: " << o.faces.size() << "\n"
        << (mapped ? "Mapped\n" : "") << "Vertex list:\n";
    for (std::size_t i = 0; i < o.vertices.size(); ++i) {
        const std::array<double, 3> p = toLocal(o, o.vertices[i]);
        out << "Vertex " << i << ":  X:" << p[0] << "     Y:" << p[1] << "     Z:" << p[2];
        if (mapped) out << "     U:" << uv[i][0] << "     V:" << uv[i][1];
        out << "\n";
    }
    out << "Face list:\n";
    for (std::size_t i = 0; i < o.faces.size(); ++i) {
        const Corner& f = o.faces[i];
        out << "Face " << i << ":    A:" << f.a << " B:" << f.b << " C:" << f.c << " AB:" << (f.ab != 0)
            << " BC:" << (f.bc != 0) << " CA:" << (f.ca != 0) << "\n";
    }
    return out.str();
}

std::string symbolOf(std::string name) {
    for (char& c : name)
        if (std::isspace(static_cast<unsigned char>(c))) c = '_';
    return name;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc > 4) {
        std::cerr << "usage: scene2asc SCENE.ase MATERIAL [PREFIX]\n";
        return 2;
    }
    const std::string scene = argv[1], material = argv[2];
    std::string prefix;
    if (argc == 4) {
        prefix = argv[3];
    } else {
        const std::size_t slash = scene.find_last_of('/');
        const std::string base = slash == std::string::npos ? scene : scene.substr(slash + 1);
        prefix = base.substr(0, base.find('.')) + "_";
    }
    const std::vector<Object> objects = read(scene);
    std::vector<std::string> symbols;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const std::string symbol =
            symbolOf(prefix + (objects[i].name.empty() ? "object" + std::to_string(i) : objects[i].name));
        std::ofstream out(symbol + ".asc", std::ios::binary);
        out << ascOf(objects[i]);
        if (!out) fail(symbol + ".asc", "can not write");
        std::cout << "add " << symbol << " Meshe " << symbol << ".asc " << material << "\n";
        symbols.push_back(symbol);
    }
    std::string sceneSymbol = prefix;
    if (!sceneSymbol.empty() && sceneSymbol.back() == '_') sceneSymbol.pop_back();
    std::cout << "add " << symbolOf(sceneSymbol.empty() ? "scene" : sceneSymbol) << " SceneMax " << scene << "\n";
    for (const std::string& symbol : symbols) std::cout << symbol << "\n";
    return 0;
}
