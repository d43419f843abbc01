#pragma once
// Small meshes for the 3D tests, registered under names like the effect tests' layers.
#include <memory>
#include <vector>

#include "engine3d/MeshPreparation.hpp"
#include "engine3d/Meshe.hpp"

namespace vz::test {

// A mesh of these points and triangles (corner indices), prepared as a loader leaves it.
inline std::unique_ptr<Meshe> meshOf(const std::vector<Vec3>& points, const std::vector<std::array<int, 3>>& faces) {
    auto mesh = std::make_unique<Meshe>(static_cast<int>(points.size()), static_cast<int>(faces.size()), 0);
    for (std::size_t i = 0; i < points.size(); ++i) {
        mesh->vertices[i].x = points[i].x;
        mesh->vertices[i].y = points[i].y;
        mesh->vertices[i].z = points[i].z;
    }
    for (std::size_t f = 0; f < faces.size(); ++f) {
        for (int c = 0; c < 3; ++c) mesh->faces[f].corners[c] = &mesh->vertices[static_cast<std::size_t>(faces[f][c])];
        mesh->faces[f].corners[3] = mesh->faces[f].corners[0];
    }
    prepareMesh(*mesh);
    return mesh;
}

// A cube of side 2 about the origin, its faces facing out.
inline std::unique_ptr<Meshe> cubeMesh() {
    std::vector<Vec3> corners;
    for (int i = 0; i < 8; ++i) corners.push_back({i & 1 ? 1.0f : -1.0f, i & 2 ? 1.0f : -1.0f, i & 4 ? 1.0f : -1.0f});
    // Two triangles a side, wound so that (c - a) x (b - a) points out.
    return meshOf(corners, {{0, 1, 2},
                            {1, 3, 2},
                            {4, 6, 5},
                            {5, 6, 7},
                            {0, 4, 1},
                            {1, 4, 5},
                            {2, 3, 6},
                            {3, 7, 6},
                            {0, 2, 4},
                            {2, 6, 4},
                            {1, 5, 3},
                            {3, 5, 7}});
}

}  // namespace vz::test
