// The tunnels: mapping a ready offsets table (32-bit, 8-bit, lit by a light map), and
// the ones that compute their tables when the script line is read: the styled tunnel,
// the pebble tunnel, the sum of wandering tunnels and the swaying corridor.
#include <cstddef>
#include <memory>
#include <vector>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/tunnels/Corridor.hpp"
#include "effects/tunnels/PebbleMask.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "effects/tunnels/TunnelWindows.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/OffsetsTable.hpp"

namespace vz {

namespace {

std::size_t count(const Layer& target) { return static_cast<std::size_t>(target.pixelCount()); }

// A tunnel table of the target's size, computed rather than loaded.
std::unique_ptr<Layer32bpp> tableFor(const Layer& target) {
    return std::make_unique<Layer32bpp>(target.width, target.height);
}
TableView view(Layer32bpp& table) { return {table.pixels, table.width, table.height, table.width}; }

// The plain tunnel, for 32-bit and 8-bit layers alike.
template <class L>
class Tunnel : public Component {
public:
    Tunnel(ComponentContext& in)
        : target_(in.symbol<L>()),
          texture_(in.symbol<L>()),
          table_(in.symbol<OffsetsTable>()),
          track_(in.symbol<KeytrackVector2>()) {
        in.requireFullTable("the texture", texture_);
        in.requirePixelCount("offsets table", table_, target_);
    }
    void run(float t) override {
        mapTunnel(target_.pixels, table_.pixels, texture_.pixels, count(target_), tunnelOffset(track_.sample(t), t));
    }

private:
    L& target_;
    const L& texture_;
    const OffsetsTable& table_;
    KeytrackVector2& track_;
};

using Tunnel32bpp = Tunnel<Layer32bpp>;
using Tunnel8bpp = Tunnel<Layer8bpp>;

class TunnelLighted32bpp : public Component {
public:
    TunnelLighted32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          texture_(in.symbol<Layer8bpp>()),
          light_(in.symbol<Layer8bpp>()),
          lut_(in.symbol<Layer32bpp>()),
          table_(in.symbol<OffsetsTable>()),
          track_(in.symbol<KeytrackVector2>()) {
        in.requireFullTable("the texture", texture_);
        in.requirePixelCount("light map", light_, target_);
        in.requireFullTable("the lut", lut_);
        in.requirePixelCount("offsets table", table_, target_);
    }
    void run(float t) override {
        mapTunnelLit(target_.pixels, table_.pixels, texture_.pixels, light_.pixels, lut_.pixels, count(target_),
                     tunnelOffset(track_.sample(t), t));
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& texture_;
    const Layer8bpp& light_;
    const Layer32bpp& lut_;
    const OffsetsTable& table_;
    KeytrackVector2& track_;
};

// A round tunnel centred on the target, the texture going twice round the wall.
class StylerTunnel32bpp : public Component {
public:
    static constexpr float turns = 2.0f;

    StylerTunnel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), texture_(in.symbol<Layer32bpp>()), track_(in.symbol<KeytrackVector2>()) {
        in.requireFullTable("the texture", texture_);
        table_ = tableFor(target_);
        generateCentredTunnel(view(*table_), turns, depthPerWidth * static_cast<float>(target_.width));
    }
    void run(float t) override {
        mapTunnel(target_.pixels, table_->pixels, texture_.pixels, count(target_), tunnelOffset(track_.sample(t), t));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& texture_;
    KeytrackVector2& track_;
    std::unique_ptr<Layer32bpp> table_;
};

// A tunnel of pebbles in one colour: the spots take the colour through the frame's rendu
// and the rest of the target stays as it is, so the tunnel can be laid over any picture.
// It travels and turns at a fixed pace.
class PobbleTunnel32bpp : public Component {
public:
    static constexpr float rowsPerSecond = 64.0f;
    static constexpr float columnsPerSecond = 16.0f;

    PobbleTunnel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          rendu_(in.symbol<KeytrackInt>()),
          mask_(65536) {
        table_ = tableFor(target_);
        generateCentredTunnel(view(*table_), 1.0f, depthPerWidth * static_cast<float>(target_.width));
        buildPebbleMask(mask_.data());
    }
    void run(float t) override {
        maskTunnel(target_.pixels, table_->pixels, mask_.data(), count(target_),
                   tunnelOffset(rowsPerSecond, columnsPerSecond, t), colour_.value, rendu_.sample(t));
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackInt& rendu_;
    std::vector<std::uint8_t> mask_;
    std::unique_ptr<Layer32bpp> table_;
};

constexpr int maxTunnels = 16;

// The combined table is mapped like a plain tunnel.
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
        combined_ = tableFor(target_);
        generateCentredTunnel(view(*source_), 1.0f, 4096.0f);
    }

    void run(float t) override {
        const Vector2 speed = track_.sample(t);
        sumTunnelWindows(view(*combined_), {source_->pixels, source_->width}, count_, t, speed.x, speed.y);
        mapTunnel(target_.pixels, combined_->pixels, texture_.pixels, count(target_), 0);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& texture_;
    KeytrackVector2& track_;
    int count_;
    std::unique_ptr<Layer32bpp> source_;    // 2W x 2H tunnel centred on (W, H)
    std::unique_ptr<Layer32bpp> combined_;  // W x H, rebuilt every run
};

class FennickCouloir32bpp : public Component {
public:
    FennickCouloir32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          texture_(in.symbol<Layer8bpp>()),
          lut_(in.symbol<Layer32bpp>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          speed_(in.symbol<KeytrackFloat>()) {
        in.requireFullTable("the texture", texture_);
        in.requireFullTable("the lut", lut_);
        corridor_ = std::make_unique<Corridor>(target_.width, target_.height);
    }

    void run(float t) override {
        const float amplitude = amplitude_.sample(t);
        const std::uint32_t offset = tunnelOffset(speed_.sample(t), 0.0f, t);
        corridor_->draw(target_, texture_.pixels, lut_.pixels, amplitude, offset, t);
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& texture_;
    const Layer32bpp& lut_;
    KeytrackFloat& amplitude_;
    KeytrackFloat& speed_;
    std::unique_ptr<Corridor> corridor_;
};

}  // namespace

VZ_COMPONENT("tunnel32bpp", Tunnel32bpp)
VZ_COMPONENT("tunnel8bpp", Tunnel8bpp)
VZ_COMPONENT("tunnelLighted32bpp", TunnelLighted32bpp)
VZ_COMPONENT("stylerTunnel32bpp", StylerTunnel32bpp)
VZ_COMPONENT("pobbleTunnel32bpp", PobbleTunnel32bpp)
VZ_COMPONENT("multiTunnels32bpp", MultiTunnels32bpp)
VZ_COMPONENT("fennickCouloir32bpp", FennickCouloir32bpp)

}  // namespace vz
