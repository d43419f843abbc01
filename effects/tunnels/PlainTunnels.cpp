// The tunnels that map a ready offsets table: 32-bit, 8-bit and lit by a light map.
#include <cstddef>

#include "core/Layer.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/OffsetsTable.hpp"

namespace vz {

namespace {

std::size_t count(const Layer& target) { return static_cast<std::size_t>(target.pixelCount()); }

}  // namespace

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

VZ_COMPONENT("tunnel32bpp", Tunnel32bpp)
VZ_COMPONENT("tunnel8bpp", Tunnel8bpp)
VZ_COMPONENT("tunnelLighted32bpp", TunnelLighted32bpp)

}  // namespace vz
