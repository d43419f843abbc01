#include "effects/procedural/Bump.hpp"

#include <algorithm>
#include <cmath>

namespace vz {

LightSpot::LightSpot(int radius)
    : radius_(radius),
      side_(2 * radius + 3),
      values_(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_)) {
    const int centre = radius_ + 1;
    for (int y = 0; y < side_; ++y)
        for (int x = 0; x < side_; ++x) {
            const double d = std::hypot(x - centre, y - centre) / radius_;
            // A soft spot: the square of the falling light, so the edge fades out gently.
            const double light = d < 1.0 ? (1.0 - d) * (1.0 - d) : 0.0;
            values_[static_cast<std::size_t>(y) * side_ + x] = static_cast<std::uint8_t>(std::lround(255.0 * light));
        }
}

std::uint8_t LightSpot::at(int dx, int dy) const {
    const int edge = radius_ + 1;
    const int x = std::clamp(dx, -edge, edge) + edge, y = std::clamp(dy, -edge, edge) + edge;
    return values_[static_cast<std::size_t>(y) * side_ + x];
}

void bumpRow(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
             int lightX, int dy, const LightSpot& spot) {
    if (w <= 0) return;
    const int last = w - 1;
    // Everything the loop reads, in locals: the byte stores could otherwise alias them.
    const std::uint8_t* values = spot.values();
    const int edge = spot.radius() + 1;
    const auto side = static_cast<std::size_t>(spot.side());
    auto pixel = [=](int x, int left, int right) {
        const int sx = std::clamp(x - lightX - slopeGain * (row[right] - row[left]), -edge, edge) + edge;
        const int sy = std::clamp(dy - slopeGain * (down[x] - up[x]), -edge, edge) + edge;
        return values[static_cast<std::size_t>(sy) * side + static_cast<std::size_t>(sx)];
    };
    out[0] = pixel(0, 0, std::min(1, last));
    for (int x = 1; x < last; ++x) out[x] = pixel(x, x - 1, x + 1);
    if (last > 0) out[last] = pixel(last, last - 1, last);
}

}  // namespace vz
