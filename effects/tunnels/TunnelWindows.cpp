#include "effects/tunnels/TunnelWindows.hpp"

#include <cmath>
#include <cstdint>
#include <numbers>

#include "effects/tunnels/TunnelMapping.hpp"

namespace vz {

namespace {

// Window k of n at time t, its top-left corner in the double-size table (0..W, 0..H).
struct Point {
    int x, y;
};
Point windowPosition(int k, int n, float t, int width, int height) {
    const double lap = 2.0 * std::numbers::pi / 4.0;  // common period of sin(8 s) and cos(12 s)
    const double s = t * 0.1 + lap * k / n;
    const double fx = 0.5 * (1.0 + std::sin(8.0 * s));
    const double fy = 0.5 * (1.0 + std::cos(12.0 * s));
    // fx, fy lie in 0..1, rounded to the nearest entry (a non-finite time gives NaN,
    // which fails both tests: 0).
    const auto place = [](double f, int size) {
        return f > 0.0 ? (f < 1.0 ? static_cast<int>(std::lround(f * size)) : size) : 0;
    };
    return {place(fx, width), place(fy, height)};
}

}  // namespace

void sumTunnelWindows(TableView combined, ConstTableView source, int count, float t, float speed, float rotation) {
    const int w = combined.width, h = combined.height;
    for (int k = 0; k < count; ++k) {
        const Point at = windowPosition(k, count, t, w, h);
        const ConstTableView window{source.entries + static_cast<std::int64_t>(at.y) * source.stride + at.x,
                                    source.stride};
        const std::uint32_t offset = tunnelOffset(speed, k % 2 == 0 ? rotation : -rotation, t);
        if (k == 0)
            copyTableRect(combined, window, offset);
        else
            accumulateTableRect(combined, window, offset);
    }
}

}  // namespace vz
