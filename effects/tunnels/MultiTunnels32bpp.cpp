// Several tunnels summed into one table: windows of a double-size tunnel table wander
// along a Lissajous figure and their entries are added, so the tunnels' walls
// interfere. The combined table is then mapped like a plain tunnel.
#include <cmath>
#include <memory>
#include <numbers>
#include <string>

#include "core/Layer.hpp"
#include "core/error.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

constexpr int maxTunnels = 16;

// Window k of n at time t, its top-left corner in the double-size table (0..W, 0..H).
// All windows follow one closed 2:3 Lissajous figure (frequencies 8 and 12, slowed by
// 0.1: one lap in 5 pi seconds), spread evenly along it.
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

class MultiTunnels32bpp : public Component {
public:
    MultiTunnels32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          texture_(in.symbol<Layer32bpp>()),
          track_(in.symbol<KeytrackVector2>()),
          count_(in.integerWithin("the number of tunnels", 1, maxTunnels)) {
        in.requireFullTable("the texture", texture_);
        const int w = target_.width, h = target_.height;
        source_ = std::make_unique<Layer32bpp>(2 * w, 2 * h);
        combined_ = std::make_unique<Layer32bpp>(w, h);
        generateTunnelTable({source_->pixels, 2 * w, 2 * h, 2 * w}, static_cast<float>(w), static_cast<float>(h), 1.0f,
                            4096.0f, 4.0f);
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        const Vector2 speed = track_.sample(t);
        const TableView combined{combined_->pixels, w, h, w};
        for (int k = 0; k < count_; ++k) {
            const Point at = windowPosition(k, count_, t, w, h);
            const ConstTableView window{source_->row(at.y) + at.x, 2 * w};
            // Every other tunnel turns the other way, so neighbours twist against each other.
            const std::uint32_t offset = tunnelOffset(speed.x, k % 2 == 0 ? speed.y : -speed.y, t);
            if (k == 0)
                copyTableRect(combined, window, offset);
            else
                accumulateTableRect(combined, window, offset);
        }
        mapTunnel(target_.pixels, combined_->pixels, texture_.pixels, static_cast<std::size_t>(w) * h, 0);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& texture_;
    KeytrackVector2& track_;
    int count_;
    std::unique_ptr<Layer32bpp> source_;    // 2W x 2H tunnel centred on (W, H)
    std::unique_ptr<Layer32bpp> combined_;  // W x H, rebuilt every run
};

VZ_COMPONENT("multiTunnels32bpp", MultiTunnels32bpp)

}  // namespace vz
