#include "effects/procedural/Bump.hpp"

#include <algorithm>
#include <cmath>

#include "effects/procedural/ScalarChoice.hpp"

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

namespace detail {

void bumpPixels(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                int lightX, int dy, const LightSpot& spot, int from, int to) {
    // Everything the loop reads, in locals: the byte stores could otherwise alias them.
    const std::uint8_t* values = spot.values();
    const int edge = spot.radius() + 1;
    const auto side = static_cast<std::size_t>(spot.side());
    const int last = w - 1;
    for (int x = from; x < to; ++x) {
        const int slopeX = row[std::min(x + 1, last)] - row[std::max(x - 1, 0)], slopeY = down[x] - up[x];
        const int sx = std::clamp(x - lightX - slopeGain * slopeX, -edge, edge) + edge;
        const int sy = std::clamp(dy - slopeGain * slopeY, -edge, edge) + edge;
        out[x] = values[static_cast<std::size_t>(sy) * side + static_cast<std::size_t>(sx)];
    }
}

}  // namespace detail

void bumpRowScalar(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                   int lightX, int dy, const LightSpot& spot) {
    detail::bumpPixels(out, up, row, down, w, lightX, dy, spot, 0, w);
}

void bumpRow(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
             int lightX, int dy, const LightSpot& spot) {
    if (scalarKernelsChosen())
        bumpRowScalar(out, up, row, down, w, lightX, dy, spot);
    else
        bumpRowSse2(out, up, row, down, w, lightX, dy, spot);
}

}  // namespace vz
