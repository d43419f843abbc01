#pragma once
// A scene camera: where it stands, the point it looks at, how far it turns about its
// line of sight, and its horizontal field of view in radians.
#include <numbers>

#include "engine3d/Geometry.hpp"
#include "engine3d/Object3D.hpp"

namespace vz {

struct Camera : Object3D {
    int state = 0;  // 0 whenever a component changes the camera
    Vec3 position{0, 0, 0};
    Vec3 lookAt{0, 0, 1};
    float fov = static_cast<float>(std::numbers::pi / 3);  // 1.0471976
    float roll = 0;
};

}  // namespace vz
