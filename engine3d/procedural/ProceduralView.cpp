#include "engine3d/procedural/ProceduralView.hpp"

#include "engine3d/TrackValues.hpp"

namespace vz {

ModelPose poseFromAngles(const Vector3& angles) {
    ModelPose pose;
    const Vec3 a = finiteVec3(angles);
    pose.rotation = static_cast<Mat3T<double>>(rotationFromAngles(a.x, a.y, a.z));
    return pose;
}

void beginProceduralFrame(RenderContext& context, const EngineSettings& settings, const Layer& target) {
    Camera camera;
    camera.fov = static_cast<float>(settings.fov);
    context.lowQuality = settings.lowQuality;
    beginFrame(context, camera, target);
}

}  // namespace vz
