#pragma once
// The one object shape of every 3D drawing: an indexed triangle mesh. Vertices carry a
// position and a mapping pair; faces point straight at their three vertices and at the
// material that paints them; edges list what a wireframe drawing shows. The arrays are
// made once at their final size and never reallocated, so those pointers stay valid.
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "core/Resource.hpp"
#include "engine3d/Geometry.hpp"
#include "engine3d/Object3D.hpp"

namespace vz {

class Material;

struct Vertex {
    std::int32_t state = 0;  // the renderer's per-frame flag word; 0 after loading
    std::int32_t work = 0;   // the renderer's scratch word
    float x = 0, y = 0, z = 0;
    float u = 0, v = 0;  // v is already flipped: 0 is the top row of a texture
    // Per-frame results of the lighting stage, read by the fillers. The preparation
    // passes start them as the first mapping pair and the material's colour.
    float u2 = 0, v2 = 0;       // third and fourth mapping values (light map, intensity)
    float r = 0, g = 0, b = 0;  // colour of the gouraud kind, 0-255 per channel
};

struct Face {
    Material* material = nullptr;
    int materialId = 4;  // copy of the material's id: the renderers dispatch on it
    Vec3 normal;         // unit normal in object space (a preparation pass)
    int vertexCount = 3;
    // a, b, c and a again, so that corners i and i + 1 form an edge for i = 0, 1, 2.
    std::array<Vertex*, 4> corners{};
    std::uint32_t flatColor = 0;  // what the flat filler paints: the material's colour until lit
};

struct Edge {
    Vertex* from = nullptr;
    Vertex* to = nullptr;
};

// Object space to its parent's space (or the world's): p -> rotation (scale p) + position.
using Placement = AffineT<double>;

class Meshe : public Object3D, public Resource {
public:
    // Arrays of the given sizes; edgeCapacity edges may be appended by the loader, which
    // then stores the number it used in edgeCount.
    Meshe(int vertexCount, int faceCount, int edgeCapacity);
    Meshe(const Meshe&) = delete;
    Meshe& operator=(const Meshe&) = delete;

    static const char* staticKind() { return "Meshe"; }
    const char* kindName() const override { return staticKind(); }

    Vec3 position{0, 0, 256};  // an object nobody places sits 256 units before the camera
    Vec3 scale{1, 1, 1};
    Vec3 inverseScale{1, 1, 1};
    Mat3 rotation;  // rows; identity until a component sets it
    // The frame's placement relative to the parent, and relative to the world.
    Placement local, world;
    float lastTime = -1.0f;  // -1: the placements are stale and are rebuilt at the next drawing

    int vertexCount = 0;
    int faceCount = 0;
    int edgeCount = 0;
    std::vector<Face> faces;
    std::vector<Vertex> vertices;
    std::vector<Edge> edges;  // edgeCapacity long; the first edgeCount are used

    // Results of the preparation passes.
    std::vector<Vec3> vertexNormals;  // unit, object space, one per vertex
    Vec3 boundCentre;                 // a sphere holding every vertex
    float boundRadius = 0;

    // The uniform scale s and its inverse.
    void setUniformScale(float s);
    // The face takes the material, a copy of its id and its colour; the mesh keeps the
    // material alive.
    void bind(Face& face, const std::shared_ptr<Material>& material);
    // Every face takes the material.
    void bindAll(const std::shared_ptr<Material>& material);
    int indexOf(const Vertex* vertex) const { return static_cast<int>(vertex - vertices.data()); }

private:
    void keep(const std::shared_ptr<Material>& material);
    std::vector<std::shared_ptr<Material>> materials_;  // every material a face uses or used
};

}  // namespace vz
