// Procedural wireframes: a model of lines built once, turned by a rotation track and
// drawn in the colours of a palette, blended by a rendu track.
#include <utility>
#include <vector>

#include "core/Palette.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/procedural/ProceduralView.hpp"
#include "engine3d/procedural/WireModel.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/Show.hpp"

namespace vz {

class WireframeShape : public Component {
public:
    WireframeShape(ComponentContext& in, WireModel model)
        : target_(in.symbol<Layer32bpp>()),
          palette_(in.symbol<Palette>()),
          rotation_(in.symbol<KeytrackVector3>()),
          rendu_(in.symbol<KeytrackInt>()),
          settings_(in.show().settings<EngineSettings>()),
          model_(std::move(model)) {}

    void run(float t) override {
        beginProceduralFrame(context_, settings_, target_);
        drawWires(context_, model_, poseFromAngles(rotation_.sample(t)), palette_, sampleRendu(rendu_, t), cameraSpace_,
                  target_);
    }

private:
    Layer32bpp& target_;
    const Palette& palette_;
    KeytrackVector3& rotation_;
    KeytrackInt& rendu_;
    const EngineSettings& settings_;
    const WireModel model_;
    RenderContext context_;
    std::vector<Vec3T<double>> cameraSpace_;
};

class WireframeFlower32bpp : public WireframeShape {
public:
    WireframeFlower32bpp(ComponentContext& in) : WireframeShape(in, flowerWires()) {}
};

class WireframeADN32bpp : public WireframeShape {
public:
    WireframeADN32bpp(ComponentContext& in) : WireframeShape(in, helixWires()) {}
};

VZ_COMPONENT("wireframeFlower32bpp", WireframeFlower32bpp)
VZ_COMPONENT("wireframeADN32bpp", WireframeADN32bpp)

}  // namespace vz
