#pragma once
// Shape changes of a mesh, computed afresh every frame from a pose kept aside (the
// positions the mesh had when the modifier was made), so that nothing accumulates from
// frame to frame. Each writes the mesh's positions and then refreshes its normals, which
// the lighting modifiers and the renderers read.
#include <vector>

#include "engine3d/Geometry.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/Transform.hpp"

namespace vz {

// The positions of a mesh, in vertex order.
std::vector<Vec3> positionsOf(const Meshe& mesh);
// Writes positions back (as many as the mesh has vertices).
void setPositions(Meshe& mesh, const std::vector<Vec3>& positions);
// Face normals, then vertex normals, from the current positions.
void refreshNormals(Meshe& mesh);

// target = a + (b - a) f, vertex by vertex; the three meshes have the same vertex count.
void morphPositions(Meshe& target, const Meshe& a, const Meshe& b, float f);

// Where a pose sits: the centre of its bounding box and the mean distance of its
// vertices from that centre.
struct PoseShape {
    Vec3 centre;
    float meanRadius = 0;
};
PoseShape shapeOf(const std::vector<Vec3>& pose);

// Every vertex pushed out from the centre by 1 + amplitude w, where w (-1..1) is the mean
// of three sine waves along the axes, `frequency` waves across the pose's mean radius,
// drifting with the time t at their own paces: a wobbling drop.
void blobPositions(Meshe& mesh, const std::vector<Vec3>& pose, const PoseShape& shape, float amplitude, float frequency,
                   float t);

// Every vertex moved the fraction f (held in 0..1) of the way to the sphere of the pose's
// mean radius about its centre, along its direction from the centre.
void spherifyPositions(Meshe& mesh, const std::vector<Vec3>& pose, const PoseShape& shape, float f);

// Rotations that lag with the height: the pose's heights (y) from lowest to highest are
// cut into `levels` bands, band k turning by the angles the track gives at
// t - delay k / (levels - 1). Filled once a frame; each vertex then takes its band's matrix.
class HeightDelay {
public:
    static constexpr int levels = 256;

    explicit HeightDelay(const std::vector<Vec3>& pose);
    // Turns every vertex of the pose about the object's origin by its band's rotation.
    template <class AnglesAt>
    void apply(Meshe& mesh, const std::vector<Vec3>& pose, float t, float delay, AnglesAt&& anglesAt) {
        for (int k = 0; k < levels; ++k) {
            const Vec3 a = anglesAt(t - delay * static_cast<float>(k) / (levels - 1));
            rotations_[k] = rotationFromAngles(a.x, a.y, a.z);
        }
        turn(mesh, pose);
    }

private:
    void turn(Meshe& mesh, const std::vector<Vec3>& pose) const;
    std::vector<int> bands_;
    std::vector<Mat3> rotations_;
};

}  // namespace vz
