// The components that assemble a Scene afresh every frame, in timeline order: initScene
// empties it and installs its camera, addMeshe places and appends objects, linkMeshe and
// linkRoot set the hierarchy, setCamera and vertigoCamera move the current camera.
#include <cmath>
#include <string>
#include <vector>

#include "core/error.hpp"
#include "engine3d/Camera.hpp"
#include "engine3d/PlaceObject.hpp"
#include "engine3d/Scene.hpp"
#include "engine3d/Transform.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

constexpr double degrees = 0.017453292519943295;

class InitScene : public Component {
public:
    InitScene(ComponentContext& in) : scene_(in.symbol<Scene>()) {}
    // The scene may outlive this component: it must not keep pointing at its camera.
    ~InitScene() override { std::erase(scene_.cameras, &camera_); }
    void run(float) override {
        scene_.currentCamera = 0;
        scene_.objects.clear();
        scene_.cameras.clear();
        scene_.cameras.push_back(&camera_);
    }

private:
    Scene& scene_;
    Camera camera_;  // keeps what the camera components set from frame to frame
};

class SetCamera : public Component {
public:
    SetCamera(ComponentContext& in)
        : scene_(in.symbol<Scene>()),
          position_(in.symbol<KeytrackVector3>()),
          lookAt_(in.symbol<KeytrackVector3>()),
          fov_(in.symbol<KeytrackFloat>()),
          roll_(in.symbol<KeytrackFloat>()) {}
    void run(float time) override {
        Camera* camera = scene_.current();
        if (!camera) return;
        const Vector3 p = position_.sample(time), l = lookAt_.sample(time);
        camera->position = {p.x, p.y, p.z};
        camera->lookAt = {l.x, l.y, l.z};
        camera->fov = static_cast<float>(fov_.sample(time) * degrees);
        camera->roll = roll_.sample(time);
        camera->state = 0;
    }

private:
    Scene& scene_;
    KeytrackVector3& position_;
    KeytrackVector3& lookAt_;
    KeytrackFloat& fov_;
    KeytrackFloat& roll_;
};

// A dolly zoom. The camera moves `intensity` units along its line of sight toward the
// look-at point (away from it when negative), never nearer than the near plane, and the
// field of view changes so that the plane of the look-at point shows the same width as
// a field of view of `focus` degrees showed from the camera's place before the move:
//   D = |lookAt - position|,  D' = max(D - intensity, near),
//   position += (lookAt - position) (D - D') / D,
//   fov = 2 atan(D tan(focus / 2) / D').
// The target keeps its size on screen while everything before and behind it stretches.
class VertigoCamera : public Component {
public:
    VertigoCamera(ComponentContext& in)
        : scene_(in.symbol<Scene>()), focus_(in.symbol<KeytrackFloat>()), intensity_(in.symbol<KeytrackFloat>()) {}
    void run(float time) override {
        Camera* camera = scene_.current();
        if (!camera) return;
        const Vec3T<double> from = static_cast<Vec3T<double>>(camera->position);
        const Vec3T<double> line = static_cast<Vec3T<double>>(camera->lookAt) - from;
        const double distance = std::sqrt(dot(line, line));
        if (!(distance > nearPlane) || !std::isfinite(distance)) return;
        double moved = distance - intensity_.sample(time);
        if (!(moved >= nearPlane)) moved = nearPlane;
        camera->position = static_cast<Vec3>(from + line * ((distance - moved) / distance));
        const double halfWidth = distance * std::tan(focus_.sample(time) * degrees * 0.5);
        camera->fov = static_cast<float>(2 * std::atan(halfWidth / moved));
        camera->state = 0;
    }

private:
    Scene& scene_;
    KeytrackFloat& focus_;
    KeytrackFloat& intensity_;
};

class AddMeshe : public Component {
public:
    AddMeshe(ComponentContext& in)
        : scene_(in.symbol<Scene>()),
          mesh_(in.symbol<Meshe>()),
          position_(in.symbol<KeytrackVector3>()),
          rotation_(in.symbol<KeytrackVector3>()),
          scale_(in.symbol<KeytrackFloat>()) {}
    void run(float time) override {
        placeObject(mesh_, position_.sample(time), rotation_.sample(time), scale_.sample(time));
        scene_.objects.push_back(&mesh_);
    }

private:
    Scene& scene_;
    Meshe& mesh_;
    KeytrackVector3& position_;
    KeytrackVector3& rotation_;
    KeytrackFloat& scale_;
};

class LinkMeshe : public Component {
public:
    LinkMeshe(ComponentContext& in)
        : parent_(in.symbol<Meshe>()),
          model_(in.symbol<Meshe>()),
          where_(in.parser().fileName() + ":" + std::to_string(in.parser().lineNumber())) {}
    void run(float) override {
        if (!linkUnder(model_, &parent_))
            fatal("linkMeshe : " + where_ + " : the link would make a cycle in the hierarchy");
    }

private:
    Meshe& parent_;
    Meshe& model_;
    std::string where_;
};

class LinkRoot : public Component {
public:
    LinkRoot(ComponentContext& in) : model_(in.symbol<Meshe>()) {}
    void run(float) override { makeRoot(model_); }

private:
    Meshe& model_;
};

}  // namespace

VZ_COMPONENT("initScene", InitScene)
VZ_COMPONENT("setCamera", SetCamera)
VZ_COMPONENT("vertigoCamera", VertigoCamera)
VZ_COMPONENT("addMeshe", AddMeshe)
VZ_COMPONENT("linkMeshe", LinkMeshe)
VZ_COMPONENT("linkRoot", LinkRoot)

}  // namespace vz
