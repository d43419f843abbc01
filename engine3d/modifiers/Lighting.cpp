#include "engine3d/modifiers/Lighting.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine3d/MeshPreparation.hpp"
#include "script/Material.hpp"

namespace vz {

namespace {

Vec3 positionOf(const Vertex& v) { return {v.x, v.y, v.z}; }

// Two unit vectors that make a right-handed frame with the unit vector w.
void frameAround(const Vec3& w, Vec3& e1, Vec3& e2) {
    const Vec3 helper = std::fabs(w.y) < 0.9f ? Vec3{0, 1, 0} : Vec3{1, 0, 0};
    e1 = normalized(cross(helper, w));
    e2 = cross(w, e1);
}

}  // namespace

std::uint32_t scaledColour(std::uint32_t colour, float i) {
    const auto level = static_cast<std::uint32_t>(std::clamp(i, 0.0f, 1.0f) * 256.0f);  // 0..256
    const std::uint32_t rb = ((colour & 0xFF00FFu) * level >> 8) & 0xFF00FFu;
    const std::uint32_t g = ((colour & 0x00FF00u) * level >> 8) & 0x00FF00u;
    return (colour & 0xFF000000u) | rb | g;
}

Vec3 toObjectSpace(const Meshe& mesh, const Vec3& p) {
    const Vec3 d = p - mesh.position;
    // A rotation's inverse is its transpose: the rows weighted by d.
    const Mat3& r = mesh.rotation;
    const Vec3 turned = r.rows[0] * d.x + r.rows[1] * d.y + r.rows[2] * d.z;
    return {turned.x * mesh.inverseScale.x, turned.y * mesh.inverseScale.y, turned.z * mesh.inverseScale.z};
}

void ensureNormals(Meshe& mesh) {
    if (mesh.vertexNormals.size() != mesh.vertices.size()) {
        computeFaceNormals(mesh);
        computeVertexNormals(mesh);
    }
}

void envmapCoordinates(Meshe& mesh) {
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        const Vec3 n = mesh.rotation * mesh.vertexNormals[i];
        // View space has y up while v = 0 is the texture's top row.
        mesh.vertices[i].u = 0.5f + 0.5f * n.x;
        mesh.vertices[i].v = 0.5f - 0.5f * n.y;
    }
}

void phongCoordinates(Meshe& mesh, const Vec3& light) {
    // One direction for the whole mesh, from its centre: the light map is then one frame
    // of reference, with no seam where per-vertex frames would flip.
    Vec3 toLight = normalized(light - mesh.boundCentre);
    if (dot(toLight, toLight) == 0) toLight = {0, 0, -1};
    Vec3 e1, e2;
    frameAround(toLight, e1, e2);
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        const Vec3& n = mesh.vertexNormals[i];
        // The distance from the map's centre grows with the angle to the light.
        const float angle = std::acos(std::clamp(dot(n, toLight), -1.0f, 1.0f));
        const float a = dot(n, e1), b = dot(n, e2);
        const float across = std::sqrt(a * a + b * b);
        const float radius = 0.5f * angle / std::numbers::pi_v<float>;
        const float k = across > 0 ? radius / across : 0;
        mesh.vertices[i].u2 = std::min(0.5f + a * k, brightestLevel);
        mesh.vertices[i].v2 = std::min(0.5f + b * k, brightestLevel);
    }
}

void gouraudLighting(Meshe& mesh, const Vec3& light, const std::vector<std::uint32_t>& baseColours) {
    for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
        Vertex& v = mesh.vertices[i];
        const float level = intensityOf(mesh.vertexNormals[i], normalized(light - positionOf(v)));
        v.u2 = level * brightestLevel;
        const std::uint32_t c = baseColours[i];
        v.r = static_cast<float>(c >> 16 & 0xFF) * level;
        v.g = static_cast<float>(c >> 8 & 0xFF) * level;
        v.b = static_cast<float>(c & 0xFF) * level;
    }
}

void flatLighting(Meshe& mesh, const Vec3& light, const std::vector<std::uint32_t>& baseColours) {
    for (std::size_t i = 0; i < mesh.faces.size(); ++i) {
        Face& face = mesh.faces[i];
        const Vec3 centre =
            (positionOf(*face.corners[0]) + positionOf(*face.corners[1]) + positionOf(*face.corners[2])) * (1.0f / 3);
        face.flatColor = scaledColour(baseColours[i], intensityOf(face.normal, normalized(light - centre)));
    }
}

std::vector<std::uint32_t> faceBaseColours(const Meshe& mesh) {
    std::vector<std::uint32_t> colours;
    colours.reserve(mesh.faces.size());
    for (const Face& face : mesh.faces) colours.push_back(face.material ? face.material->color : face.flatColor);
    return colours;
}

std::vector<std::uint32_t> vertexBaseColours(const Meshe& mesh) {
    const std::vector<std::uint32_t> faceColours = faceBaseColours(mesh);
    std::vector<std::uint32_t> colours(mesh.vertices.size(), 0xFFFFFFu);
    // Walked backwards so that the first face using a vertex has the last word.
    for (std::size_t f = mesh.faces.size(); f-- > 0;)
        for (int i = 0; i < 3; ++i)
            colours[static_cast<std::size_t>(mesh.indexOf(mesh.faces[f].corners[i]))] = faceColours[f];
    return colours;
}

}  // namespace vz
