#pragma once
// The transform front end: from a mesh and a camera to the visible faces of a frame,
// clipped and projected, in the painter's order. Scene players call it once per object
// with one camera; the mesh players with their private scene of one object.
//
//   object space --placement--> world --camera--> camera space --near clip--> projection
//   --clip to the target--> back faces dropped (or turned, for double-faced materials)
//
// Depth: a point at camera distance z gets depth = nearDepth / z, which is below 1 for
// every point in front of the near plane, greater for nearer points, and changes
// linearly across the screen, so the rasterizer may step it like any other value.
#include "engine3d/Camera.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"

namespace vz {

class Layer;

// Points nearer than this (camera space z) are clipped away.
constexpr double nearPlane = 1.0;
// depth = nearDepth / z stays below 1, so round(depth x 2^24) never reaches the
// z-buffer's stamp byte.
constexpr double nearDepth = 0.999 * nearPlane;

// The rotation of three angles in radians, rows as the mesh players build them.
Mat3 rotationFromAngles(float a, float b, float c);

// The camera of a frame drawn on a target of this size. The field of view is held
// within 0.001 .. pi - 0.001 radians.
CameraView makeCameraView(const Camera& camera, int width, int height);

// Where the object stands in the world this frame: its own placement after its
// parents'. Rebuilt when lastTime is -1 or another time; lastTime then takes `time`.
const Placement& placementOf(Meshe& mesh, float time);

// Starts a frame: the camera, the target's viewport (and pitch), no faces.
void beginFrame(RenderContext& context, const Camera& camera, const Layer& target);

// Fills context.cameraSpace with the mesh's vertices seen by the frame's camera.
void toCameraSpace(RenderContext& context, Meshe& mesh, float time);

// Appends the mesh's visible faces (needs toCameraSpace first).
void addVisibleFaces(RenderContext& context, const Meshe& mesh);

// Both steps above.
void addMeshe(RenderContext& context, Meshe& mesh, float time);

// Sorts the faces far to near; faces at the same distance keep their arrival order.
void sortFarToNear(RenderContext& context);

class Scene;
// The whole frame of a scene: beginFrame with the scene's current camera, every object
// added, the faces sorted far to near. A scene without a camera draws nothing.
void projectScene(RenderContext& context, Scene& scene, const Layer& target, float time);

// A camera-space point in front of the near plane, projected.
struct ProjectedPoint {
    float px = 0, py = 0, depth = 0;
};
ProjectedPoint project(const CameraView& camera, const Vec3T<double>& p);

// The part of segment a-b in front of the near plane and inside the target, projected;
// false when nothing of it is left. A wireframe's lines go through here.
bool projectSegment(const RenderContext& context, const Vec3T<double>& a, const Vec3T<double>& b, ProjectedPoint& pa,
                    ProjectedPoint& pb);

}  // namespace vz
