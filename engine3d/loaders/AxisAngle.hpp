#pragma once
// Rotations of a scene export (turns about an axis) accumulated as unit quaternions
// and handed to the engine as the three angles from which the mesh players build an
// object's rotation matrix.
#include "script/Keytrack.hpp"

namespace vz {

struct AxisAngle {
    Vector3 axis{0, 0, 1};
    float angle = 0;  // radians, right-handed about the axis
};

struct Quaternion {
    double w = 1, x = 0, y = 0, z = 0;
};

// `previous` followed by the turn (given in the file's axes). A zero axis turns nothing.
Quaternion accumulate(const Quaternion& previous, const AxisAngle& turn);

// The angles (a, b, c) whose matrix (rotationFromAngles) is the rotation q seen in the
// engine's axes (second and third swapped), each angle moved by whole turns to the one
// nearest `near`.
Vector3 anglesOf(const Quaternion& q, const Vector3& near);

}  // namespace vz
