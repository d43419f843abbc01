#pragma once
// The camera of the procedural 3D effects: the mesh players' default camera (at the
// origin, looking along z, with the engine-wide field of view that "setFov" sets), and
// a model turned by three angles about its own centre, modelDistance units before it.
#include "core/Layer.hpp"
#include "engine3d/Camera.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/RenderContext.hpp"
#include "engine3d/Transform.hpp"
#include "script/Keytrack.hpp"

namespace vz {

// Models are built about 100 units across their half size: at this distance and a field
// of view of one radian they fill about two thirds of a 4:3 target's height (the view
// is as wide as the field of view, and narrower upward by the target's aspect).
constexpr double modelDistance = 400;

struct ModelPose {
    Mat3T<double> rotation;
    Vec3T<double> offset{0, 0, modelDistance};
    Vec3T<double> operator()(const Vec3& p) const { return rotation * static_cast<Vec3T<double>>(p) + offset; }
};

// The turn of three angles from a track; values that are not finite read 0.
ModelPose poseFromAngles(const Vector3& angles);

// Starts a frame of a procedural effect: the camera on this target.
void beginProceduralFrame(RenderContext& context, const EngineSettings& settings, const Layer& target);

// A point of the world as the frame's camera sees it.
inline Vec3T<double> seenBy(const CameraView& camera, const Vec3T<double>& world) {
    return camera.basis * (world - camera.position);
}

}  // namespace vz
