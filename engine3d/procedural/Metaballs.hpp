#pragma once
// An iso-surface of blobs turned into triangles every frame. Each ball adds
// (1 - d^2 / r^2)^2 within its radius r (d the distance to its centre); the surface is
// where the sum is `threshold`. The field is sampled on a cubic grid, each grid cell is
// cut into six tetrahedra along its main diagonal, and each tetrahedron crossing the
// surface gives one or two triangles whose corners slide along its edges to where the
// field crosses the threshold. Tetrahedra have no ambiguous cases, so the surface has
// no holes, and every corner takes the field's gradient as its normal.
#include <memory>
#include <vector>

#include "engine3d/Geometry.hpp"
#include "engine3d/Meshe.hpp"

namespace vz {

class Material;

struct Ball {
    Vec3 centre;
    float radius = 1;
};

class MetaballSurface {
public:
    static constexpr float threshold = 0.25f;

    // A grid of `points` samples a side over -halfExtent .. +halfExtent on each axis; at
    // most `maxFaces` triangles are made (those beyond are dropped).
    MetaballSurface(int points, float halfExtent, int maxFaces);

    // The field at p.
    static float fieldAt(const std::vector<Ball>& balls, const Vec3& p);
    // The surface's outward unit normal at p (the field falls outward).
    static Vec3 normalAt(const std::vector<Ball>& balls, const Vec3& p);

    // Rebuilds the mesh's vertices and faces (three corners of its own per face), each
    // face painted by `material`; vertex normals and the environment mapping of its
    // present rotation are filled too. The mesh's arrays keep the room
    // they were given, so nothing is allocated after the first frames.
    void build(const std::vector<Ball>& balls, Meshe& mesh, Material* material);

private:
    void sample(const std::vector<Ball>& balls);
    Vec3 gridPoint(int i, int j, int k) const;
    void addTetrahedron(const std::vector<Ball>& balls, const Vec3* p, const float* f, Meshe& mesh, Material* material);
    void addTriangle(const std::vector<Ball>& balls, const Vec3& a, const Vec3& b, const Vec3& c, Meshe& mesh,
                     Material* material);

    int points_;
    float halfExtent_, step_;
    int maxFaces_;
    std::vector<float> field_;  // points^3 samples, x fastest
};

// A metaball mesh with room for `maxFaces` faces.
std::unique_ptr<Meshe> makeMetaballMesh(int maxFaces);

}  // namespace vz
