#pragma once
// How a component places an object for the frame: stale placement, position, uniform
// scale with its inverse, rotation matrix from three angles in radians.
#include "engine3d/Meshe.hpp"
#include "engine3d/Transform.hpp"
#include "script/Keytrack.hpp"

namespace vz {

inline void placeObject(Meshe& mesh, const Vector3& position, const Vector3& angles, float scale) {
    mesh.lastTime = -1.0f;
    mesh.position = {position.x, position.y, position.z};
    mesh.setUniformScale(scale);
    mesh.rotation = rotationFromAngles(angles.x, angles.y, angles.z);
}

}  // namespace vz
