#include "engine3d/procedural/Metaballs.hpp"

#include <algorithm>
#include <cmath>

#include "engine3d/modifiers/Lighting.hpp"
#include "script/Material.hpp"

namespace vz {

namespace {

// The six tetrahedra of a cell, as corners of the cell: corner bits 0, 1, 2 step x, y, z.
// All share the diagonal from corner 0 to corner 7.
constexpr int tetrahedra[6][4] = {{0, 1, 3, 7}, {0, 3, 2, 7}, {0, 2, 6, 7}, {0, 6, 4, 7}, {0, 4, 5, 7}, {0, 5, 1, 7}};

// Where the field crosses the threshold between a and b.
Vec3 crossing(const Vec3& a, float fa, const Vec3& b, float fb) {
    const float t = fb != fa ? (MetaballSurface::threshold - fa) / (fb - fa) : 0.5f;
    return a + (b - a) * std::clamp(t, 0.0f, 1.0f);
}

}  // namespace

MetaballSurface::MetaballSurface(int points, float halfExtent, int maxFaces)
    : points_(std::max(points, 2)),
      halfExtent_(halfExtent),
      step_(2 * halfExtent / static_cast<float>(points_ - 1)),
      maxFaces_(maxFaces),
      field_(static_cast<std::size_t>(points_) * points_ * points_) {}

float MetaballSurface::fieldAt(const std::vector<Ball>& balls, const Vec3& p) {
    float sum = 0;
    for (const Ball& ball : balls) {
        const Vec3 d = p - ball.centre;
        const float x = 1 - dot(d, d) / (ball.radius * ball.radius);
        if (x > 0) sum += x * x;
    }
    return sum;
}

Vec3 MetaballSurface::normalAt(const std::vector<Ball>& balls, const Vec3& p) {
    // Minus the gradient: d/dp (1 - d.d / r^2)^2 = -4 (1 - d.d / r^2) d / r^2.
    Vec3 outward;
    for (const Ball& ball : balls) {
        const Vec3 d = p - ball.centre;
        const float r2 = ball.radius * ball.radius;
        const float x = 1 - dot(d, d) / r2;
        if (x > 0) outward = outward + d * (4 * x / r2);
    }
    return normalized(outward);
}

Vec3 MetaballSurface::gridPoint(int i, int j, int k) const {
    return {-halfExtent_ + step_ * static_cast<float>(i), -halfExtent_ + step_ * static_cast<float>(j),
            -halfExtent_ + step_ * static_cast<float>(k)};
}

void MetaballSurface::sample(const std::vector<Ball>& balls) {
    std::size_t at = 0;
    for (int k = 0; k < points_; ++k)
        for (int j = 0; j < points_; ++j)
            for (int i = 0; i < points_; ++i) field_[at++] = fieldAt(balls, gridPoint(i, j, k));
}

void MetaballSurface::build(const std::vector<Ball>& balls, Meshe& mesh, Material* material) {
    sample(balls);
    mesh.vertices.clear();
    mesh.faces.clear();
    const std::size_t row = static_cast<std::size_t>(points_), slab = row * row;
    for (int k = 0; k + 1 < points_; ++k)
        for (int j = 0; j + 1 < points_; ++j)
            for (int i = 0; i + 1 < points_; ++i) {
                Vec3 p[8];
                float f[8];
                bool inside = false, outside = false;
                for (int c = 0; c < 8; ++c) {
                    const int di = c & 1, dj = c >> 1 & 1, dk = c >> 2 & 1;
                    f[c] = field_[(k + dk) * slab + (j + dj) * row + static_cast<std::size_t>(i + di)];
                    p[c] = gridPoint(i + di, j + dj, k + dk);
                    (f[c] > threshold ? inside : outside) = true;
                }
                if (!inside || !outside) continue;  // the surface does not cross this cell
                for (const auto& tetrahedron : tetrahedra) {
                    const Vec3 tp[4] = {p[tetrahedron[0]], p[tetrahedron[1]], p[tetrahedron[2]], p[tetrahedron[3]]};
                    const float tf[4] = {f[tetrahedron[0]], f[tetrahedron[1]], f[tetrahedron[2]], f[tetrahedron[3]]};
                    addTetrahedron(balls, tp, tf, mesh, material);
                }
            }
    // The corners now stay where they are: faces may point at them.
    for (std::size_t i = 0; i < mesh.faces.size(); ++i)
        for (int c = 0; c < 3; ++c) mesh.faces[i].corners[c] = &mesh.vertices[3 * i + static_cast<std::size_t>(c)];
    for (Face& face : mesh.faces) face.corners[3] = face.corners[0];
    mesh.vertexCount = static_cast<int>(mesh.vertices.size());
    mesh.faceCount = static_cast<int>(mesh.faces.size());
    mesh.vertexNormals.resize(mesh.vertices.size());
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        const Vertex& v = mesh.vertices[i];
        mesh.vertexNormals[i] = normalAt(balls, {v.x, v.y, v.z});
    }
    envmapCoordinates(mesh);
}

void MetaballSurface::addTetrahedron(const std::vector<Ball>& balls, const Vec3* p, const float* f, Meshe& mesh,
                                     Material* material) {
    int in[4], out[4], ins = 0, outs = 0;
    for (int c = 0; c < 4; ++c) (f[c] > threshold ? in[ins++] : out[outs++]) = c;
    const auto cut = [&](int a, int b) { return crossing(p[a], f[a], p[b], f[b]); };
    if (ins == 1 || ins == 3) {
        // One corner on its own side: the triangle across its three edges.
        const int lone = ins == 1 ? in[0] : out[0];
        const int* others = ins == 1 ? out : in;
        addTriangle(balls, cut(lone, others[0]), cut(lone, others[1]), cut(lone, others[2]), mesh, material);
    } else if (ins == 2) {
        // Two and two: the four crossings make a quad, cut in two.
        const Vec3 a = cut(in[0], out[0]), b = cut(in[0], out[1]), c = cut(in[1], out[1]), d = cut(in[1], out[0]);
        addTriangle(balls, a, b, c, mesh, material);
        addTriangle(balls, a, c, d, mesh, material);
    }
}

void MetaballSurface::addTriangle(const std::vector<Ball>& balls, const Vec3& a, const Vec3& b, const Vec3& c,
                                  Meshe& mesh, Material* material) {
    if (static_cast<int>(mesh.faces.size()) >= maxFaces_) return;
    // The front of a face wound a, b, c lies on the side of (c - a) x (b - a): turn the
    // triangle so that side faces out of the surface.
    const Vec3 outward = normalAt(balls, (a + b + c) * (1.0f / 3));
    const bool flip = dot(cross(c - a, b - a), outward) < 0;
    for (const Vec3& p : {a, flip ? c : b, flip ? b : c}) {
        Vertex v;
        v.x = p.x;
        v.y = p.y;
        v.z = p.z;
        mesh.vertices.push_back(v);
    }
    Face face;
    face.material = material;
    if (material) {
        face.materialId = material->id;
        face.flatColor = material->color;
    }
    face.normal = outward;
    mesh.faces.push_back(face);
}

std::unique_ptr<Meshe> makeMetaballMesh(int maxFaces) {
    auto mesh = std::make_unique<Meshe>(0, 0, 0);
    mesh->faces.reserve(static_cast<std::size_t>(maxFaces));
    mesh->vertices.reserve(3 * static_cast<std::size_t>(maxFaces));
    mesh->vertexNormals.reserve(3 * static_cast<std::size_t>(maxFaces));
    return mesh;
}

}  // namespace vz
