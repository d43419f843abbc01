// Keeping the depth buffer of the 3D renderers fresh, and fog drawn from it.
#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

// Advances the frame stamp: the buffer is only cleared when the stamp wraps, once every
// 128 runs.
class UpdateZbuffer : public Component {
public:
    UpdateZbuffer(ComponentContext& in) : zbuffer_(in.symbol<Zbuffer>()) {}

    void run(float) override { zbuffer_.advanceStamp(); }

private:
    Zbuffer& zbuffer_;
};

// Pixels whose depth word has none of bits 16-23 set are blended toward the fog colour:
// k = bits 11-15 of the depth, level 32 - k with the fog as source (k = 0 is pure fog).
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
        std::uint32_t* pixel = screen_.pixels;
        const std::uint32_t* depth = zbuffer_.pixels;
        const std::uint32_t fog = fog_.value;
        // The level changes from pixel to pixel with the depth, so the operator is looked
        // up per pixel here; levels 1-32 are always inside the table.
        for (std::size_t i = 0, n = sharedCount(screen_, zbuffer_); i < n; ++i) {
            const std::uint32_t z = depth[i];
            if (z & 0x00FF0000u) continue;
            const int k = static_cast<int>(z >> 11 & 31u);
            pixel[i] = operatorTable[32 - k](fog, pixel[i]);
        }
    }

private:
    Layer32bpp& screen_;
    [[maybe_unused]] const Layer32bpp& source_;
    Zbuffer& zbuffer_;
    Color& fog_;
};

VZ_COMPONENT("updateZbuffer", UpdateZbuffer)
VZ_COMPONENT("fogZbuffer32bpp", FogZbuffer32bpp)

}  // namespace vz
