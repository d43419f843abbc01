#include "engine3d/MeshPreparation.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vz {

namespace {

Vec3 positionOf(const Vertex& v) { return {v.x, v.y, v.z}; }

}  // namespace

void computeFaceNormals(Meshe& mesh) {
    for (Face& face : mesh.faces) {
        const Vec3 a = positionOf(*face.corners[0]);
        // The engine's axes are left-handed (the loaders swap two axes), so the front of a
        // face wound a, b, c is on the side of (c - a) x (b - a).
        face.normal = normalized(cross(positionOf(*face.corners[2]) - a, positionOf(*face.corners[1]) - a));
    }
}

void computeVertexNormals(Meshe& mesh) {
    mesh.vertexNormals.assign(mesh.vertices.size(), Vec3{});
    for (const Face& face : mesh.faces)
        for (int i = 0; i < 3; ++i) {
            Vec3& sum = mesh.vertexNormals[static_cast<std::size_t>(mesh.indexOf(face.corners[i]))];
            sum = sum + face.normal;
        }
    for (Vec3& normal : mesh.vertexNormals) normal = normalized(normal);
}

void computeBoundingSphere(Meshe& mesh) {
    if (mesh.vertices.empty()) return;
    Vec3 low = positionOf(mesh.vertices[0]), high = low;
    for (const Vertex& v : mesh.vertices) {
        low = {std::min(low.x, v.x), std::min(low.y, v.y), std::min(low.z, v.z)};
        high = {std::max(high.x, v.x), std::max(high.y, v.y), std::max(high.z, v.z)};
    }
    mesh.boundCentre = (low + high) * 0.5f;
    float radiusSquared = 0;
    for (const Vertex& v : mesh.vertices) {
        const Vec3 d = positionOf(v) - mesh.boundCentre;
        radiusSquared = std::max(radiusSquared, dot(d, d));
    }
    mesh.boundRadius = std::sqrt(radiusSquared);
}

void setLightingDefaults(Meshe& mesh) {
    for (Vertex& v : mesh.vertices) {
        v.u2 = v.u;
        v.v2 = v.v;
    }
    // Walked backwards so that the first face using a vertex has the last word.
    for (auto face = mesh.faces.rbegin(); face != mesh.faces.rend(); ++face)
        for (int i = 0; i < 3; ++i) {
            Vertex& v = *face->corners[i];
            v.r = static_cast<float>(face->flatColor >> 16 & 0xFF);
            v.g = static_cast<float>(face->flatColor >> 8 & 0xFF);
            v.b = static_cast<float>(face->flatColor & 0xFF);
        }
}

void prepareMesh(Meshe& mesh) {
    computeFaceNormals(mesh);
    computeVertexNormals(mesh);
    computeBoundingSphere(mesh);
    setLightingDefaults(mesh);
}

}  // namespace vz
