#pragma once
// What the mesh players share: the mesh, its position, rotation and scale tracks, and a
// private one-object scene seen by a default camera, which the engine's scene drawing
// turns into the frame's visible faces.
#include "engine3d/Camera.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"
#include "engine3d/Scene.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class ComponentContext;
class Layer;

// The three tracks of a mesh player, read in syntax order.
struct MeshTracks {
    explicit MeshTracks(ComponentContext& in);
    KeytrackVector3& position;
    KeytrackVector3& rotation;  // three angles in radians
    KeytrackFloat& scale;       // one uniform scale
};

class MeshStage {
public:
    MeshStage(ComponentContext& in, Meshe& mesh);
    MeshStage(const MeshStage&) = delete;
    MeshStage& operator=(const MeshStage&) = delete;

    // The mesh placed as the tracks say at `time`, its transform marked stale, and the
    // camera's field of view taken from "setFov".
    void place(MeshTracks& tracks, float time);
    void setPosition(const Vector3& p);
    void setRotation(const Vector3& angles);
    // The stale mark and the field of view: what every pass repeats.
    void refresh();

    // The frame's visible faces on `target`, far to near.
    RenderContext& project(const Layer& target, float time);

    Meshe& mesh;
    Camera camera;
    Scene scene;
    RenderContext context;

private:
    const EngineSettings& settings_;
};

}  // namespace vz
