#include "engine3d/MeshPlayer.hpp"

#include "engine3d/PlaceObject.hpp"
#include "engine3d/Transform.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"

namespace vz {

MeshTracks::MeshTracks(ComponentContext& in)
    : position(in.symbol<KeytrackVector3>()),
      rotation(in.symbol<KeytrackVector3>()),
      scale(in.symbol<KeytrackFloat>()) {}

MeshStage::MeshStage(ComponentContext& in, Meshe& mesh) : mesh(mesh), settings_(in.show().settings<EngineSettings>()) {
    scene.objects.push_back(&mesh);
    scene.cameras.push_back(&camera);
}

void MeshStage::setPosition(const Vector3& p) { mesh.position = {p.x, p.y, p.z}; }

void MeshStage::setRotation(const Vector3& angles) { mesh.rotation = rotationFromAngles(angles.x, angles.y, angles.z); }

void MeshStage::refresh() {
    mesh.lastTime = -1.0f;
    camera.fov = static_cast<float>(settings_.fov);
}

void MeshStage::place(MeshTracks& tracks, float time) {
    placeObject(mesh, tracks.position.sample(time), tracks.rotation.sample(time), tracks.scale.sample(time));
    refresh();
}

RenderContext& MeshStage::project(const Layer& target, float time) {
    context.lowQuality = settings_.lowQuality;
    projectScene(context, scene, target, time);
    return context;
}

}  // namespace vz
