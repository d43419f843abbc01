// The meshes of the 3D section (meshes.txt), their materials and their tracks. Points
// are written in the files' own axes: the third axis points up, the second away from the
// viewer (the player swaps them on load), and faces run anticlockwise seen from outside.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tools/assetgen/Assets.hpp"

namespace vz::assetgen {

namespace {

constexpr double turn = 6.283185307179586;

struct Point {
    double x, y, z, u, v;
};

std::string number(double v) {
    if (std::fabs(v) < 0.0005) v = 0.0;  // no "-0.000"
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", v);
    return text;
}

Bytes bytesOf(const std::string& text) { return Bytes(text.begin(), text.end()); }

// A (columns + 1) x (rows + 1) grid of points (the seam repeated, so that the mapping
// does not jump), two faces per cell.
struct Grid {
    int columns, rows;
    std::vector<Point> points;
    int at(int i, int j) const { return j * (columns + 1) + i; }
};

Grid makeGrid(int columns, int rows, const std::function<Point(double, double)>& surface) {
    Grid grid{columns, rows, {}};
    for (int j = 0; j <= rows; ++j)
        for (int i = 0; i <= columns; ++i)
            grid.points.push_back(surface(static_cast<double>(i) / columns, static_cast<double>(j) / rows));
    return grid;
}

// An "asc" mesh of the grid: both faces of a cell mark the cell's outline as visible
// edges, never its diagonal.
std::string ascOf(const std::string& name, const Grid& grid) {
    std::string text = "Named object: \"" + name + "\"\n";
    text += "Tri-mesh, Vertices: " + std::to_string(grid.points.size()) +
            "     Faces: " + std::to_string(grid.columns * grid.rows * 2) + "\nMapped\nVertex list:\n";
    for (std::size_t k = 0; k < grid.points.size(); ++k) {
        const Point& p = grid.points[k];
        text += "Vertex " + std::to_string(k) + ":  X:" + number(p.x) + "  Y:" + number(p.y) + "  Z:" + number(p.z) +
                "  U:" + number(p.u) + "  V:" + number(p.v) + "\n";
    }
    text += "Face list:\n";
    int face = 0;
    auto add = [&](int a, int b, int c, const char* flags) {
        text += "Face " + std::to_string(face++) + ":    A:" + std::to_string(a) + " B:" + std::to_string(b) +
                " C:" + std::to_string(c) + " " + flags + "\nSmoothing:  1\n";
    };
    for (int j = 0; j < grid.rows; ++j)
        for (int i = 0; i < grid.columns; ++i) {
            const int p00 = grid.at(i, j), p10 = grid.at(i + 1, j), p11 = grid.at(i + 1, j + 1),
                      p01 = grid.at(i, j + 1);
            add(p00, p10, p11, "AB:1 BC:1 CA:0");
            add(p00, p11, p01, "AB:0 BC:1 CA:1");
        }
    return text;
}

// A "3d" mesh of the grid.
std::string threeDOf(const Grid& grid) {
    std::string text = std::to_string(grid.points.size()) + " " + std::to_string(grid.columns * grid.rows * 2) + "\n";
    for (const Point& p : grid.points)
        text += number(p.x) + " " + number(p.y) + " " + number(p.z) + " " + number(p.u) + " " + number(p.v) + "\n";
    for (int j = 0; j < grid.rows; ++j)
        for (int i = 0; i < grid.columns; ++i) {
            const int p00 = grid.at(i, j), p10 = grid.at(i + 1, j), p11 = grid.at(i + 1, j + 1),
                      p01 = grid.at(i, j + 1);
            text += std::to_string(p00) + " " + std::to_string(p10) + " " + std::to_string(p11) + "\n";
            text += std::to_string(p00) + " " + std::to_string(p11) + " " + std::to_string(p01) + "\n";
        }
    return text;
}

// A torus round the up axis: ring radius 60, tube radius 24; the texture wraps twice
// round the ring and once round the tube.
Point torusPoint(double s, double t) {
    const double a = s * turn, b = t * turn, ring = 60 + 24 * std::cos(b);
    return {ring * std::cos(a), ring * std::sin(a), 24 * std::sin(b), 2 * s, t};
}

// A sphere of radius 55, poles on the up axis.
Point spherePoint(double s, double t) {
    const double a = s * turn, b = (t - 0.5) * turn / 2;
    return {55 * std::cos(b) * std::cos(a), 55 * std::cos(b) * std::sin(a), 55 * std::sin(b), s, t};
}

// A cube of side 80 whose three pairs of opposite sides name three materials.
std::string crate() {
    std::string text = "Named object: \"crate\"\nTri-mesh, Vertices: 24     Faces: 12\nMapped\nVertex list:\n";
    // Each side: its outward axis and two axes along it, chosen so that the corners run
    // anticlockwise seen from outside.
    const int sides[6][3][3] = {
        {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},  {{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}}, {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}},
        {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}},
    };
    const double corners[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    int vertex = 0;
    for (const auto& side : sides)
        for (const auto& c : corners) {
            double p[3];
            for (int k = 0; k < 3; ++k) p[k] = 40 * (side[0][k] + c[0] * side[1][k] + c[1] * side[2][k]);
            text += "Vertex " + std::to_string(vertex++) + ":  X:" + number(p[0]) + "  Y:" + number(p[1]) +
                    "  Z:" + number(p[2]) + "  U:" + number((c[0] + 1) / 2) + "  V:" + number((c[1] + 1) / 2) + "\n";
        }
    text += "Face list:\n";
    const char* materials[3] = {"mtiles", "mgouraud", "mflat"};
    for (int s = 0; s < 6; ++s) {
        const int b = 4 * s;
        const std::string material = std::string("Material:\"") + materials[s / 2] + "\"\n";
        text += "Face " + std::to_string(2 * s) + ":    A:" + std::to_string(b) + " B:" + std::to_string(b + 1) +
                " C:" + std::to_string(b + 2) + " AB:1 BC:1 CA:0\n" + material;
        text += "Face " + std::to_string(2 * s + 1) + ":    A:" + std::to_string(b) + " B:" + std::to_string(b + 2) +
                " C:" + std::to_string(b + 3) + " AB:0 BC:1 CA:1\n" + material;
    }
    return text;
}

}  // namespace

void addMeshes(AssetList& assets) {
    assets.push_back({"torus.asc", bytesOf(ascOf("torus", makeGrid(16, 8, torusPoint)))});
    assets.push_back({"sphere.3d", bytesOf(threeDOf(makeGrid(12, 8, spherePoint)))});
    assets.push_back({"crate.asc", bytesOf(crate())});
    const std::pair<const char*, const char*> texts[] = {
        {"mat_tiles.txt", "# the brick texture, 256 x 256\nmap32bpp mtexture\nid texture32bpp\n"},
        {"mat_gouraud.txt",
         "# each corner its own colour (the preparation gives the first face's colour)\n"
         "color mgold\nid gouraud32bpp\n"},
        {"mat_flat.txt", "color mblue\nid flatColor\n"},
        {"mat_glass.txt",
         "# drawn after the solid faces, added, without writing depth\n"
         "color cglass\nid flatColor\nrendu add\nsolid false\ndoubleface true\n"},
        {"mat_plasma8.txt", "# the 8-bit plasma texture\nmap8bpp mplasma\nid texture8bpp\n"},
        {"spin.txt",
         "# vector3: angles in radians, a slow tumble every 8 s\nlinear 2 1.000\n"
         "0.000 0.000 0.000 0.000\n6.283 12.566 6.283 8.000\n"},
        {"mesh_path.txt",
         "# vector3: position, swinging left and right at distance 256 every 4 s\ncosinus 3 1.000\n"
         "-60.000 0.000 256.000 0.000\n60.000 0.000 256.000 2.000\n-60.000 0.000 256.000 4.000\n"},
        {"mesh_focus.txt",
         "# float: focus distance, 160 -> 360 -> 160 every 2 s\ncosinus 3 1.000\n"
         "160.000 0.000\n360.000 1.000\n160.000 2.000\n"},
        {"glass_rendu.txt",
         "# int rendu: the glass flashes between add and glenz 50 every second\nsquare 2 1.000\n"
         "33 0.000\n16 0.500\n"},
    };
    for (const auto& [name, text] : texts) assets.push_back({name, Bytes(text, text + std::strlen(text))});
}

}  // namespace vz::assetgen
