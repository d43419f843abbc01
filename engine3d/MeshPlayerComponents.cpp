// The nine mesh players and the field of view they share.
#include <cmath>

#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "engine3d/DotDrawing.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/MeshPlayer.hpp"
#include "engine3d/PassAccumulator.hpp"
#include "engine3d/WireframeDrawing.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"

namespace vz {

namespace {

// The mesh players' field of view, in radians, from this component's first run on.
class SetFov : public Component {
public:
    SetFov(ComponentContext& in) : settings_(in.show().settings<EngineSettings>()), fov_(in.integer()) {}

    void run(float) override { settings_.fov = fov_; }

private:
    EngineSettings& settings_;
    int fov_;
};

class MeshePlayerWireframe32bpp : public Component {
public:
    MeshePlayerWireframe32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          stage_(in, in.symbol<Meshe>()),
          tracks_(in),
          rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        stage_.place(tracks_, localTime);
        const RenderContext& context = stage_.project(target_, localTime);
        drawWireframe(context, stage_.mesh, target_, palette_, sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    Palette& palette_;
    MeshStage stage_;
    MeshTracks tracks_;
    KeytrackInt& rendu_;
};

class MeshePlayerDot32bpp : public Component {
public:
    MeshePlayerDot32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          sprite_(in.symbol<Layer32bpp>()),
          stage_(in, in.symbol<Meshe>()),
          baseRadius_(in.realWithin("baseRadius", -4096, 4096)),
          scaleRadius_(in.realWithin("scaleRadius", -4096, 4096)),
          tracks_(in) {}

    void run(float localTime) override {
        stage_.place(tracks_, localTime);
        drawDots(stage_.project(target_, localTime), target_, sprite_, baseRadius_, scaleRadius_);
    }

private:
    Layer32bpp& target_;
    Layer32bpp& sprite_;
    MeshStage stage_;
    float baseRadius_;
    float scaleRadius_;
    MeshTracks tracks_;
};

// The faces drawn by one of the rasterizer's renderers: T is the target's layer kind.
template <class T>
class FacePlayer : public Component {
protected:
    using Draw = void (*)(RenderContext&);

    FacePlayer(ComponentContext& in, Draw draw) : target_(in.symbol<T>()), zbuffer_(nullptr), draw_(draw) {}
    // The z-buffer kinds: the z-buffer follows the target in the syntax.
    FacePlayer(ComponentContext& in, Draw draw, bool)
        : target_(in.symbol<T>()), zbuffer_(&in.symbol<Zbuffer>()), draw_(draw) {
        in.requireSameSize("zbuffer", *zbuffer_, target_);
    }

public:
    void run(float localTime) override {
        stage_->place(*tracks_, localTime);
        RenderContext& c = stage_->project(target_, localTime);
        c.target32 = nullptr;
        c.target8 = nullptr;
        if constexpr (std::is_same_v<T, Layer32bpp>)
            c.target32 = target_.pixels;
        else
            c.target8 = target_.pixels;
        c.zbuffer = zbuffer_ ? zbuffer_->pixels : nullptr;
        c.zword = zbuffer_ ? zbuffer_->stamp : 0;
        draw_(c);
    }

protected:
    // The mesh and its tracks follow the target (and z-buffer) in every syntax.
    void readMesh(ComponentContext& in) {
        stage_ = std::make_unique<MeshStage>(in, in.symbol<Meshe>());
        tracks_ = std::make_unique<MeshTracks>(in);
    }

private:
    T& target_;
    Zbuffer* zbuffer_;
    Draw draw_;
    std::unique_ptr<MeshStage> stage_;
    std::unique_ptr<MeshTracks> tracks_;
};

class MeshePlayerPainter32bpp : public FacePlayer<Layer32bpp> {
public:
    MeshePlayerPainter32bpp(ComponentContext& in) : FacePlayer(in, raster::drawPainter32) { readMesh(in); }
};

class MeshePlayerPainter8bpp : public FacePlayer<Layer8bpp> {
public:
    MeshePlayerPainter8bpp(ComponentContext& in) : FacePlayer(in, raster::drawPainter8) { readMesh(in); }
};

class MeshePlayerZbuffer32bpp : public FacePlayer<Layer32bpp> {
public:
    MeshePlayerZbuffer32bpp(ComponentContext& in) : FacePlayer(in, raster::drawZbuffer32, true) { readMesh(in); }
};

class MeshePlayerZbuffer8bpp : public FacePlayer<Layer8bpp> {
public:
    MeshePlayerZbuffer8bpp(ComponentContext& in) : FacePlayer(in, raster::drawZbuffer8, true) { readMesh(in); }
};

// Eight drawings of the mesh combined into the target (see PassAccumulator). Every face
// of every pass is drawn with the filler of the mesh's first face, by the rasterizer's
// single-kind renderer.
class MultiPassPlayer : public Component {
protected:
    explicit MultiPassPlayer(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), stage_(in, in.symbol<Meshe>()) {}

    // Each pass: the mesh as `setUp(k)` leaves it, drawn and accumulated.
    template <class SetUp>
    void drawPasses(float localTime, SetUp&& setUp) {
        // Taken every frame: "linkMaterial" may have rebound the faces since the last one.
        const Meshe& mesh = stage_.mesh;
        const raster::FillerKind kind =
            mesh.faces.empty() ? raster::FillerKind::flat32 : raster::kindFor32(mesh.faces[0].materialId);
        passes_.begin(target_);
        for (int k = 0; k < 8; ++k) {
            setUp(k);
            stage_.refresh();
            Layer32bpp& pass = passes_.nextPass();
            RenderContext& c = stage_.project(pass, localTime);
            c.target32 = pass.pixels;
            c.target8 = nullptr;
            c.zbuffer = nullptr;
            raster::drawSingleKind32(c, kind);
            passes_.accumulate();
        }
        passes_.combineInto(target_);
    }

    // Eight positions on a circle of radius r around the tracked position, in the plane
    // facing the camera.
    void drawOnCircle(float localTime, const Vector3& centre, float r) {
        drawPasses(localTime, [&](int k) {
            const float angle = static_cast<float>(k) * 0.125f * 6.283f;
            stage_.setPosition({centre.x + r * std::cos(angle), centre.y + r * std::sin(angle), centre.z});
        });
    }

    Layer32bpp& target_;
    MeshStage stage_;
    PassAccumulator passes_;
};

class MeshePlayerAntialias32bpp : public MultiPassPlayer {
public:
    MeshePlayerAntialias32bpp(ComponentContext& in)
        : MultiPassPlayer(in), scatering_(in.symbol<KeytrackFloat>()), tracks_(in) {}

    void run(float localTime) override {
        stage_.place(tracks_, localTime);
        drawOnCircle(localTime, tracks_.position.sample(localTime), scatering_.sample(localTime));
    }

private:
    KeytrackFloat& scatering_;
    MeshTracks tracks_;
};

class MeshePlayerMotionblur32bpp : public MultiPassPlayer {
public:
    MeshePlayerMotionblur32bpp(ComponentContext& in)
        : MultiPassPlayer(in), scatering_(in.symbol<KeytrackFloat>()), tracks_(in) {}

    // The rotation swept from its value now to its value `scatering` seconds later.
    void run(float localTime) override {
        stage_.setPosition(tracks_.position.sample(localTime));
        stage_.mesh.setUniformScale(tracks_.scale.sample(localTime));
        const float span = scatering_.sample(localTime);
        Vector3 angles = tracks_.rotation.sample(localTime);
        const Vector3 later = tracks_.rotation.sample(localTime + span);
        const Vector3 step{(later.x - angles.x) * 0.125f, (later.y - angles.y) * 0.125f, (later.z - angles.z) * 0.125f};
        drawPasses(localTime, [&](int k) {
            if (k > 0) angles = {angles.x + step.x, angles.y + step.y, angles.z + step.z};
            stage_.setRotation(angles);
        });
    }

private:
    KeytrackFloat& scatering_;
    MeshTracks tracks_;
};

// Depth of field: the circle's radius grows with the object's distance from the focus,
// by scateringNear per 256 units nearer than the focus and scateringFar per 256 units
// beyond it.
class MeshePlayerDOF32bpp : public MultiPassPlayer {
public:
    MeshePlayerDOF32bpp(ComponentContext& in)
        : MultiPassPlayer(in),
          focus_(in.symbol<KeytrackFloat>()),
          near_(in.realWithin("scateringNear", -4096, 4096)),
          far_(in.realWithin("scateringFar", -4096, 4096)),
          tracks_(in) {}

    void run(float localTime) override {
        stage_.place(tracks_, localTime);
        const Vector3 centre = tracks_.position.sample(localTime);
        drawOnCircle(localTime, centre, dofRadius(focus_.sample(localTime), centre.z));
    }

    float dofRadius(float focus, float z) const {
        const float offset = (z - focus) / 256.0f;
        return offset < 0 ? -offset * near_ : offset * far_;
    }

private:
    KeytrackFloat& focus_;
    float near_;
    float far_;
    MeshTracks tracks_;
};

}  // namespace

VZ_COMPONENT("meshePlayerPainter8bpp", MeshePlayerPainter8bpp)
VZ_COMPONENT("meshePlayerPainter32bpp", MeshePlayerPainter32bpp)
VZ_COMPONENT("meshePlayerZbuffer8bpp", MeshePlayerZbuffer8bpp)
VZ_COMPONENT("meshePlayerZbuffer32bpp", MeshePlayerZbuffer32bpp)
VZ_COMPONENT("meshePlayerAntialias32bpp", MeshePlayerAntialias32bpp)
VZ_COMPONENT("meshePlayerMotionblur32bpp", MeshePlayerMotionblur32bpp)
VZ_COMPONENT("meshePlayerDOF32bpp", MeshePlayerDOF32bpp)
VZ_COMPONENT("setFov", SetFov)
VZ_COMPONENT("meshePlayerWireframe32bpp", MeshePlayerWireframe32bpp)
VZ_COMPONENT("meshePlayerDot32bpp", MeshePlayerDot32bpp)

}  // namespace vz
