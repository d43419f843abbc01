// Files of the 3D models section (models3d.txt): three meshes in the asc text format, a
// light map for phong lighting, the materials and the key files. The meshes are cubes whose
// sides are grids of n x n squares (each square two triangles, its diagonal a hidden edge),
// and a spiky shape on the same grid, so that a morph can run between them.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Picture.hpp"
#include "tools/assetgen/Shapes.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace vz::assetgen {

namespace {

struct P3 {
    double x, y, z;
};

P3 operator+(P3 a, P3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
P3 operator-(P3 a, P3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
P3 operator*(P3 a, double k) { return {a.x * k, a.y * k, a.z * k}; }
double dot(P3 a, P3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
P3 cross(P3 a, P3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }

struct GridMesh {
    struct Point {
        P3 p;
        double u, v;
    };
    struct Triangle {
        int a, b, c;
        bool ab, bc, ca;  // visible edges
    };
    std::vector<Point> points;
    std::vector<Triangle> triangles;
};

// A cube from -1 to 1, each side a grid of n x n squares with its own corners and mapping.
// Positions are the engine's (y up); each triangle's front, on the side of (c - a) x (b - a),
// faces out of the cube.
GridMesh gridCube(int n) {
    GridMesh mesh;
    const P3 axes[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int side = 0; side < 6; ++side) {
        const P3 normal = axes[side / 2] * (side % 2 ? 1.0 : -1.0);
        const P3 s = axes[(side / 2 + 1) % 3], t = axes[(side / 2 + 2) % 3];
        const int first = static_cast<int>(mesh.points.size());
        for (int j = 0; j <= n; ++j)
            for (int i = 0; i <= n; ++i) {
                const double a = 2.0 * i / n - 1, b = 2.0 * j / n - 1;
                mesh.points.push_back({normal + s * a + t * b, static_cast<double>(i) / n, static_cast<double>(j) / n});
            }
        auto at = [&](int i, int j) { return first + j * (n + 1) + i; };
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i) {
                // Two triangles; the diagonal from (i, j) to (i + 1, j + 1) is hidden.
                for (const auto& [b, c] :
                     {std::pair{at(i + 1, j), at(i + 1, j + 1)}, std::pair{at(i + 1, j + 1), at(i, j + 1)}}) {
                    const int a = at(i, j);
                    const bool firstHalf = b == at(i + 1, j);
                    GridMesh::Triangle tri{a, b, c, firstHalf, true, !firstHalf};
                    const P3 pa = mesh.points[a].p, pb = mesh.points[b].p, pc = mesh.points[c].p;
                    if (dot(cross(pc - pa, pb - pa), normal) < 0) tri = {a, c, b, tri.ca, tri.bc, tri.ab};
                    mesh.triangles.push_back(tri);
                }
            }
    }
    return mesh;
}

// The grid cube with every point moved along its direction from the centre to the radius
// `radius(direction)`.
GridMesh reshaped(GridMesh mesh, const std::function<double(P3)>& radius) {
    for (auto& point : mesh.points) {
        const P3 d = point.p * (1.0 / std::sqrt(dot(point.p, point.p)));
        point.p = d * radius(d);
    }
    return mesh;
}

std::string number(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", std::fabs(v) < 5e-5 ? 0.0 : v);
    return text;
}

// The asc text: the file's second and third axes are the engine's third and second, and
// its V runs upward.
std::string ascText(const std::string& name, const GridMesh& mesh) {
    std::string text = "Named object: \"" + name + "\"\nTri-mesh, Vertices: " + std::to_string(mesh.points.size()) +
                       " Faces: " + std::to_string(mesh.triangles.size()) + "\nMapped\nVertex list:\n";
    for (std::size_t i = 0; i < mesh.points.size(); ++i) {
        const auto& p = mesh.points[i];
        text += "Vertex " + std::to_string(i) + ": X:" + number(p.p.x) + " Y:" + number(p.p.z) + " Z:" + number(p.p.y) +
                " U:" + number(p.u) + " V:" + number(1 - p.v) + "\n";
    }
    text += "Face list:\n";
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        const auto& t = mesh.triangles[i];
        text += "Face " + std::to_string(i) + ": A:" + std::to_string(t.a) + " B:" + std::to_string(t.b) +
                " C:" + std::to_string(t.c) + " AB:" + std::to_string(t.ab) + " BC:" + std::to_string(t.bc) +
                " CA:" + std::to_string(t.ca) + "\nSmoothing: 1\n";
    }
    return text;
}

Bytes bytesOf(const std::string& text) { return Bytes(text.begin(), text.end()); }

// A spot of light in the middle of a 256 x 256 map, fading to black at its rim: what a
// phong-lit face reads where its normal points (the centre faces the light).
IndexedPicture makePhongSpot() {
    IndexedPicture map(256, 256);
    map.palette = greyPalette();
    paint(map, [](int x, int y) {
        return clampByte(24.0 + 231.0 * std::pow(1.0 - smoothstep(0, 128, distance(x + 0.5, y + 0.5, 128, 128)), 2.0));
    });
    return map;
}

}  // namespace

void addModels3dAssets(AssetList& assets) {
    constexpr int dice = 6;
    assets.push_back({"cube.asc", bytesOf(ascText("cube", gridCube(1)))});
    assets.push_back({"dice.asc", bytesOf(ascText("dice", gridCube(dice)))});
    assets.push_back({"spiky.asc", bytesOf(ascText("spiky", reshaped(gridCube(dice), [](P3 d) {
                                                       const double around =
                                                           std::fabs(std::sin(2.5 * std::atan2(d.z, d.x)));
                                                       return 0.8 + 0.6 * around * around * around * (1 - d.y * d.y);
                                                   })))});
    assets.push_back({"phong_spot.pcx", writers::encodePcx(makePhongSpot())});
    const std::pair<const char*, const char*> texts[] = {
        {"mat_m3flat.txt", "color m3gold\nid flatColor\n"},
        {"mat_m3gouraud.txt", "color m3blue\nid gouraud32bpp\n"},
        {"mat_m3texture.txt", "map32bpp m3tiles\nid texture32bpp\n"},
        {"mat_m3phong.txt", "map8bpp m3plasma\nlightmap8bpp m3spot\npalette m3plasmapal\nid dualTexture8bpp\n"},
        {"model_spin.txt",
         "# vector3: three angles in radians, turning at three paces\nlinear 2 1.000\n"
         "0.000 0.000 0.000 0.000\n6.283 12.566 3.142 10.000\n"},
        {"flare_path.txt",
         "# vector3: a light wandering before the camera every 4 s\nspline 5 1.000\n"
         "-160.000 -80.000 400.000 0.000\n140.000 -100.000 450.000 1.000\n120.000 90.000 380.000 2.000\n"
         "-130.000 80.000 350.000 3.000\n-160.000 -80.000 400.000 4.000\n"},
        {"model_light.txt",
         "# vector3: a light above the models circling them (they stand 400 units ahead) every 4 s\n"
         "spline 5 1.000\n-300.000 200.000 400.000 0.000\n0.000 200.000 100.000 1.000\n"
         "300.000 200.000 400.000 2.000\n0.000 200.000 700.000 3.000\n-300.000 200.000 400.000 4.000\n"},
        {"morph_blend.txt", "# float: 0 -> 1 -> 0 every 2 s\ncosinus 3 1.000\n0.000 0.000\n1.000 1.000\n0.000 2.000\n"},
    };
    for (const auto& [name, text] : texts) assets.push_back({name, Bytes(text, text + std::strlen(text))});
}

}  // namespace vz::assetgen
