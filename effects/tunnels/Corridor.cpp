#include "effects/tunnels/Corridor.hpp"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"

namespace vz {

Corridor::Corridor(int width, int height)
    : margin_((width >> 2) + 1), table_(width + 2 * margin_, height), light_(width + 2 * margin_, height) {
    const int wide = table_.width, h = height;
    generateCentredTunnel({table_.pixels, wide, h, wide}, 1.0f, depthPerWidth * static_cast<float>(width));
    // Light grows with the distance from the centre and is full from half the height on.
    const float cx = static_cast<float>(margin_ + (width >> 1)), cy = static_cast<float>(h >> 1);
    const double fullAt = h / 2.0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < wide; ++x) {
            const double r = std::hypot(x - cx, y - cy);
            light_.row(y)[x] = static_cast<std::uint8_t>(r >= fullAt ? 255 : static_cast<int>(r * 255.0 / fullAt));
        }
}

void Corridor::draw(Layer32bpp& target, const std::uint8_t* texture, const std::uint32_t* lut, float amplitude,
                    std::uint32_t offset, float t) const {
    const int w = target.width, h = target.height;
    const double phase = swayRate * t;
    for (int y = 0; y < h; ++y) {
        const int start = margin_ + shiftOf(amplitude * std::sin(2.0 * std::numbers::pi * y / h + phase));
        mapTunnelLit(target.row(y), table_.row(y) + start, texture, light_.row(y) + start, lut,
                     static_cast<std::size_t>(w), offset);
    }
}

int Corridor::shiftOf(double shift) const {
    if (std::isnan(shift)) return 0;
    if (shift > margin_) return margin_;
    if (shift < -margin_) return -margin_;
    return static_cast<int>(std::lround(shift));
}

}  // namespace vz
