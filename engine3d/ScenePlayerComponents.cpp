// The scene players: a Scene as the scene components assembled it this frame, or a
// SceneMax posed by its own tracks at the player's local time, drawn through the one
// transform front end with the renderers of the mesh players. The current camera looks;
// a scene without one draws nothing. Parents' placements apply to their children (the
// front end follows each object's parent).
#include <cmath>

#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "engine3d/DotDrawing.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/PassAccumulator.hpp"
#include "engine3d/SceneMax.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/WireframeDrawing.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"

namespace vz {

namespace {

// The scene a player draws, and its frame's projection. A SceneMax is posed first.
template <bool Max>
class SceneView {
public:
    using SceneType = std::conditional_t<Max, SceneMax, Scene>;

    explicit SceneView(ComponentContext& in)
        : scene(in.symbol<SceneType>()), settings_(in.show().settings<EngineSettings>()) {}

    // The current camera, after posing; null when the scene has none.
    Camera* camera(float time) {
        if constexpr (Max) scene.pose(time);
        context.lowQuality = settings_.lowQuality;
        return scene.current();
    }
    // The visible faces of every object on `target`, far to near; false without a camera.
    bool project(Layer32bpp& target, float time) {
        if (!camera(time)) return false;
        projectPosed(target, time);
        return true;
    }
    // The same without posing again (the passes of one frame).
    void projectPosed(Layer32bpp& target, float time) {
        projectScene(context, scene, target, time);
        context.target32 = target.pixels;
        context.target8 = nullptr;
        context.zbuffer = nullptr;
    }
    // Each object in turn in camera space: what the wireframe and the dots draw from.
    template <class Draw>
    void eachObject(const Layer& target, float time, Draw&& draw) {
        const Camera* view = camera(time);
        if (!view) return;
        beginFrame(context, *view, target);
        for (Meshe* mesh : scene.objects) {
            toCameraSpace(context, *mesh, time);
            draw(*mesh);
        }
    }

    SceneType& scene;
    RenderContext context;

private:
    const EngineSettings& settings_;
};

template <bool Max>
class ScenePainter32bpp : public Component {
public:
    ScenePainter32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), view_(in) {}
    void run(float localTime) override {
        if (view_.project(target_, localTime)) raster::drawPainter32(view_.context);
    }

private:
    Layer32bpp& target_;
    SceneView<Max> view_;
};

template <bool Max>
class SceneZbuffer32bpp : public Component {
public:
    SceneZbuffer32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), zbuffer_(in.symbol<Zbuffer>()), view_(in) {
        in.requireSameSize("zbuffer", zbuffer_, target_);
    }
    void run(float localTime) override {
        if (!view_.project(target_, localTime)) return;
        view_.context.zbuffer = zbuffer_.pixels;
        view_.context.zword = zbuffer_.stamp;
        raster::drawZbuffer32(view_.context);
    }

private:
    Layer32bpp& target_;
    Zbuffer& zbuffer_;
    SceneView<Max> view_;
};

template <bool Max>
class SceneWireframe32bpp : public Component {
public:
    SceneWireframe32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          view_(in),
          rendu_(in.symbol<KeytrackInt>()) {}
    void run(float localTime) override {
        const int rendu = sampleRendu(rendu_, localTime);
        view_.eachObject(target_, localTime,
                         [&](const Meshe& mesh) { drawWireframe(view_.context, mesh, target_, palette_, rendu); });
    }

private:
    Layer32bpp& target_;
    Palette& palette_;
    SceneView<Max> view_;
    KeytrackInt& rendu_;
};

// The sprite added at every vertex as the mesh player's dots are; a rendu of 0 switches
// the dots off.
template <bool Max>
class SceneDot32bpp : public Component {
public:
    SceneDot32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          sprite_(in.symbol<Layer32bpp>()),
          view_(in),
          baseRadius_(in.realWithin("baseRadius", -4096, 4096)),
          scaleRadius_(in.realWithin("scaleRadius", -4096, 4096)),
          rendu_(in.symbol<KeytrackInt>()) {}
    void run(float localTime) override {
        if (sampleRendu(rendu_, localTime) == 0) return;
        view_.eachObject(target_, localTime,
                         [&](const Meshe&) { drawDots(view_.context, target_, sprite_, baseRadius_, scaleRadius_); });
    }

private:
    Layer32bpp& target_;
    Layer32bpp& sprite_;
    SceneView<Max> view_;
    float baseRadius_;
    float scaleRadius_;
    KeytrackInt& rendu_;
};

// Depth of field as a lens sees it: eight drawings from points on a circle of radius
// strengthTrack (scene units) around the camera, across its line of sight, each aiming
// at the look-at point. The look-at point stays sharp; what lies before or behind it is
// spread the more the farther it is from it. fovTrack, in degrees, is the field of view
// of the passes (0 or less keeps the camera's). The passes are averaged and added to the
// target like the mesh players' multi-pass drawings.
template <bool Max>
class SceneDOF32bpp : public Component {
public:
    SceneDOF32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          view_(in),
          fov_(in.symbol<KeytrackFloat>()),
          strength_(in.symbol<KeytrackFloat>()) {}
    void run(float localTime) override {
        Camera* camera = view_.camera(localTime);
        if (!camera) return;
        const Camera original = *camera;
        const float fov = fov_.sample(localTime);
        if (fov > 0) camera->fov = static_cast<float>(fov * 0.017453292519943295);
        const double radius = strength_.sample(localTime);
        // Two directions across the line of sight, from the camera's own basis.
        const CameraView basis = makeCameraView(*camera, target_.width, target_.height);
        const Vec3T<double> right = basis.basis.rows[0], up = basis.basis.rows[1];
        passes_.begin(target_);
        for (int k = 0; k < 8; ++k) {
            const double angle = k * 0.125 * 6.283;
            const Vec3T<double> shift = right * (radius * std::cos(angle)) + up * (radius * std::sin(angle));
            camera->position = static_cast<Vec3>(static_cast<Vec3T<double>>(original.position) + shift);
            Layer32bpp& pass = passes_.nextPass();
            view_.projectPosed(pass, localTime);
            raster::drawPainter32(view_.context);
            passes_.accumulate();
        }
        passes_.combineInto(target_);
        *camera = original;
    }

private:
    Layer32bpp& target_;
    SceneView<Max> view_;
    KeytrackFloat& fov_;
    KeytrackFloat& strength_;
    PassAccumulator passes_;
};

}  // namespace

VZ_COMPONENT("scenePlayerPainter32bpp", ScenePainter32bpp<false>)
VZ_COMPONENT("scenePlayerZbuffer32bpp", SceneZbuffer32bpp<false>)
VZ_COMPONENT("scenePlayerWireframe32bpp", SceneWireframe32bpp<false>)
VZ_COMPONENT("scenePlayerDot32bpp", SceneDot32bpp<false>)
VZ_COMPONENT("scenePlayerDOF32bpp", SceneDOF32bpp<false>)
VZ_COMPONENT("sceneMaxPlayerPainter32bpp", ScenePainter32bpp<true>)
VZ_COMPONENT("sceneMaxPlayerZbuffer32bpp", SceneZbuffer32bpp<true>)
VZ_COMPONENT("sceneMaxPlayerWireframe32bpp", SceneWireframe32bpp<true>)
VZ_COMPONENT("sceneMaxPlayerDot32bpp", SceneDot32bpp<true>)
VZ_COMPONENT("sceneMaxPlayerDOF32bpp", SceneDOF32bpp<true>)

}  // namespace vz
