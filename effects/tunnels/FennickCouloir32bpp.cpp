// A lit corridor that sways: a tunnel table and a light map are built once, a quarter of
// the width wider than the target on each side; every frame each row is read through a
// horizontal shift that follows a sine wave running down the screen, so the corridor
// snakes from side to side by the amplitude. The light belongs to the corridor (dark in
// the distance, bright on the near walls) and sways with it; the LUT colours the texture
// under each light level as in the lit tunnel.
#include <cmath>
#include <memory>
#include <numbers>

#include "core/Layer.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class FennickCouloir32bpp : public Component {
public:
    static constexpr float depthPerWidth = 16.0f;
    static constexpr float radiusOffset = 4.0f;
    static constexpr double swayRate = 2.0;  // radians per second of the wave's phase

    FennickCouloir32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          texture_(in.symbol<Layer8bpp>()),
          lut_(in.symbol<Layer32bpp>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          speed_(in.symbol<KeytrackFloat>()) {
        in.requireFullTable("the texture", texture_);
        in.requireFullTable("the lut", lut_);
        const int w = target_.width, h = target_.height;
        margin_ = (w >> 2) + 1;
        const int wide = w + 2 * margin_;
        table_ = std::make_unique<Layer32bpp>(wide, h);
        light_ = std::make_unique<Layer8bpp>(wide, h);
        const float cx = static_cast<float>(margin_ + (w >> 1)), cy = static_cast<float>(h >> 1);
        generateTunnelTable({table_->pixels, wide, h, wide}, cx, cy, 1.0f, depthPerWidth * static_cast<float>(w),
                            radiusOffset);
        // Light grows with the distance from the centre and is full from half the height on.
        const double fullAt = h / 2.0;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < wide; ++x) {
                const double r = std::hypot(x - cx, y - cy);
                light_->row(y)[x] = static_cast<std::uint8_t>(r >= fullAt ? 255 : static_cast<int>(r * 255.0 / fullAt));
            }
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const float amplitude = amplitude_.sample(t);
        const std::uint32_t offset = tunnelOffset(speed_.sample(t), 0.0f, t);
        const double phase = swayRate * t;
        for (int y = 0; y < h; ++y) {
            const int start = margin_ + shiftOf(amplitude * std::sin(2.0 * std::numbers::pi * y / h + phase));
            mapTunnelLit(target_.row(y), table_->row(y) + start, texture_.pixels, light_->row(y) + start, lut_.pixels,
                         static_cast<std::size_t>(w), offset);
        }
    }

private:
    // A row's shift in pixels, kept inside the margin the tables were built with.
    int shiftOf(double shift) const {
        if (std::isnan(shift)) return 0;
        if (shift > margin_) return margin_;
        if (shift < -margin_) return -margin_;
        return static_cast<int>(std::lround(shift));
    }

    Layer32bpp& target_;
    const Layer8bpp& texture_;
    const Layer32bpp& lut_;
    KeytrackFloat& amplitude_;
    KeytrackFloat& speed_;
    int margin_ = 0;
    std::unique_ptr<Layer32bpp> table_;  // (W + 2 margin) x H
    std::unique_ptr<Layer8bpp> light_;
};

VZ_COMPONENT("fennickCouloir32bpp", FennickCouloir32bpp)

}  // namespace vz
