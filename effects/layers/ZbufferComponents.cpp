// Keeping the depth buffer of the 3D renderers fresh, and fog drawn from it.
#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "effects/layers/DepthFog.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

// Advances the frame stamp: the buffer is only cleared when the stamp wraps, once every
// 128 runs.
class UpdateZbuffer : public Component {
public:
    UpdateZbuffer(ComponentContext& in) : zbuffer_(in.symbol<Zbuffer>()) {}

    void run(float) override { zbuffer_.advanceStamp(); }

private:
    Zbuffer& zbuffer_;
};

// The second layer parameter is read and kept for the script's sake; the run does not
// use it. Screen pixels beyond the z-buffer's own are left as they are.
class FogZbuffer32bpp : public Component {
public:
    FogZbuffer32bpp(ComponentContext& in)
        : screen_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          zbuffer_(in.symbol<Zbuffer>()),
          fog_(in.symbol<Color>()) {}

    void run(float) override {
        fogFromDepth(screen_.pixels, zbuffer_.pixels, sharedCount(screen_, zbuffer_), fog_.value);
    }

private:
    Layer32bpp& screen_;
    [[maybe_unused]] const Layer32bpp& source_;
    Zbuffer& zbuffer_;
    Color& fog_;
};

}  // namespace

VZ_COMPONENT("updateZbuffer", UpdateZbuffer)
VZ_COMPONENT("fogZbuffer32bpp", FogZbuffer32bpp)

}  // namespace vz
