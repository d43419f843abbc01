#pragma once
// Everything one drawing needs, handed from the transform front end to the rasterizer:
// the camera of the frame, the target and its depth buffer, and the visible faces,
// clipped and projected. A renderer owns one and reuses it frame after frame, so the
// lists keep their room and nothing is allocated once they have grown.
#include <cstdint>
#include <vector>

#include "engine3d/Geometry.hpp"

namespace vz {

class Material;

// The camera as the projection uses it. Camera space: x to the right, y up, z along
// the line of sight. A point projects to px = focal x / z, py = -focal aspect y / z,
// so that -1..1 spans the target's width and height with square pixels.
struct CameraView {
    Mat3T<double> basis;  // rows: right, up, forward
    Vec3T<double> position;
    double focal = 1;   // 1 / tan(fov / 2)
    double aspect = 1;  // half width / half height of the target
};

// A corner of a visible face after clipping and projection.
struct ProjectedVertex {
    float px = 0, py = 0;  // -1..1 across the target, py = -1 on the top row
    float depth = 0;       // nearDepth / z: greater is nearer, always below 1
    float u = 0, v = 0, u2 = 0, v2 = 0;
    float r = 0, g = 0, b = 0;
};

struct VisibleFace {
    Material* material = nullptr;
    int materialId = 0;
    std::uint32_t flatColor = 0;
    int first = 0;  // its corners: vertices[first] .. vertices[first + count - 1]
    int count = 0;
    float distance = 0;  // camera-space z of the face's centre: the painter's key
    int sequence = 0;    // arrival order, which breaks ties in the painter's order
};

// A mesh vertex in camera space, with the planes of the view it lies outside of.
struct CameraVertex {
    Vec3T<double> p;
    int outside = 0;  // ClipPlane bits
};

// The target as the fillers address it.
struct Viewport {
    float centreX = 0, centreY = 0;  // the target's width and height halved (rounded down)
    float scaleX = 0, scaleY = 0;    // the same: px = -1..1 spans the width
    int width = 0, height = 0;
    int pitch = 0;  // pixels from one row to the next
};

class RenderContext {
public:
    CameraView camera;
    Viewport viewport;
    std::uint32_t* target32 = nullptr;
    std::uint8_t* target8 = nullptr;
    std::uint32_t* zbuffer = nullptr;  // null for painter drawing
    std::uint32_t zword = 0;           // the z-buffer's stamp, OR-ed into every depth
    bool lowQuality = false;           // the front end works in float instead of double

    std::vector<ProjectedVertex> vertices;
    std::vector<VisibleFace> faces;  // far to near once the front end has sorted them
    std::vector<int> deferred;       // faces the z-buffer renderer draws last

    std::vector<CameraVertex> cameraSpace;  // the vertices of the mesh being transformed

    // Starts a frame: no faces yet.
    void clearFaces() {
        vertices.clear();
        faces.clear();
    }
};

}  // namespace vz
