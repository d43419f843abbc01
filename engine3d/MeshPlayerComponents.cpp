// The mesh players that draw edges and vertices, and the field of view they share.
#include "core/Palette.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "engine3d/DotDrawing.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/MeshPlayer.hpp"
#include "engine3d/WireframeDrawing.hpp"
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

}  // namespace

VZ_COMPONENT("setFov", SetFov)
VZ_COMPONENT("meshePlayerWireframe32bpp", MeshePlayerWireframe32bpp)
VZ_COMPONENT("meshePlayerDot32bpp", MeshePlayerDot32bpp)

}  // namespace vz
