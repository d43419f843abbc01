#pragma once
// The values the fillers read beside the texture coordinates, computed from the mesh's
// normals and a light:
//   - environment mapping: u, v from each vertex normal turned into view space;
//   - phong: the third and fourth mapping values, a point of a light map whose centre
//     faces the light and whose rim (radius 0.5) faces away from it;
//   - gouraud: each vertex's intensity as its third mapping value and its colour scaled
//     by that intensity;
//   - flat: each face's colour scaled by its intensity.
// The light is a point given where the mesh is placed (the space of its position), so
// it stays put while the mesh turns; it is brought into object space through the
// placement the mesh players last gave the mesh.
#include <cstdint>
#include <vector>

#include "engine3d/Geometry.hpp"
#include "engine3d/Meshe.hpp"

namespace vz {

// Light falling on a surface facing away from it: no face goes entirely black.
constexpr float ambientLight = 0.25f;
// The largest intensity written as a mapping value, so that x 256 stays below 256.
constexpr float brightestLevel = 255.0f / 256.0f;

// ambient + (1 - ambient) max(0, n . l), for unit n and l: 0.25 .. 1.
inline float intensityOf(const Vec3& normal, const Vec3& toLight) {
    const float lambert = dot(normal, toLight);
    return ambientLight + (1 - ambientLight) * (lambert > 0 ? lambert : 0);
}

// A colour word with its three colour bytes scaled by i (0..1); the free byte is kept.
std::uint32_t scaledColour(std::uint32_t colour, float i);

// The point p (given where the mesh is placed) in the mesh's object space: the inverse of
// p -> rotation (scale p) + position.
Vec3 toObjectSpace(const Meshe& mesh, const Vec3& p);

// Makes sure the mesh has a normal per vertex (a mesh made without the preparation passes).
void ensureNormals(Meshe& mesh);

void envmapCoordinates(Meshe& mesh);
void phongCoordinates(Meshe& mesh, const Vec3& light);
// `baseColours` holds one colour word per vertex.
void gouraudLighting(Meshe& mesh, const Vec3& light, const std::vector<std::uint32_t>& baseColours);
// `baseColours` holds one colour word per face.
void flatLighting(Meshe& mesh, const Vec3& light, const std::vector<std::uint32_t>& baseColours);

// The colours lighting starts from: each face's material colour (its flat colour when it
// has no material), and for each vertex that of the first face using it.
std::vector<std::uint32_t> faceBaseColours(const Meshe& mesh);
std::vector<std::uint32_t> vertexBaseColours(const Meshe& mesh);

}  // namespace vz
