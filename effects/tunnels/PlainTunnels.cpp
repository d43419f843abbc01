// The tunnels that map a ready offsets table: 32-bit, 8-bit and lit by a light map.
#include <cstddef>

#include "effects/tunnels/TunnelChecks.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "script/Component.hpp"
#include "script/Keytrack.hpp"
#include "script/Layer.hpp"
#include "script/OffsetsTable.hpp"
#include "script/Repository.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

std::size_t count(const Layer& target) { return static_cast<std::size_t>(target.pixelCount()); }

}  // namespace

class Tunnel32bpp : public Component {
public:
    Tunnel32bpp(Sequencer&, TextParser& parser)
        : target_(Repository::instance().aquireAs<Layer32bpp>(parser)),
          texture_(Repository::instance().aquireAs<Layer32bpp>(parser)),
          table_(Repository::instance().aquireAs<OffsetsTable>(parser)),
          track_(Repository::instance().aquireAs<KeytrackVector2>(parser)) {
        requireTexture(texture_, "tunnel32bpp");
        requireCoversTarget(table_, target_, "tunnel32bpp", "offsets table");
    }
    void run(float t) override {
        mapTunnel32(target_.pixels, table_.pixels, texture_.pixels, count(target_), tunnelOffset(track_.sample(t), t));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& texture_;
    const OffsetsTable& table_;
    KeytrackVector2& track_;
};

class Tunnel8bpp : public Component {
public:
    Tunnel8bpp(Sequencer&, TextParser& parser)
        : target_(Repository::instance().aquireAs<Layer8bpp>(parser)),
          texture_(Repository::instance().aquireAs<Layer8bpp>(parser)),
          table_(Repository::instance().aquireAs<OffsetsTable>(parser)),
          track_(Repository::instance().aquireAs<KeytrackVector2>(parser)) {
        requireTexture(texture_, "tunnel8bpp");
        requireCoversTarget(table_, target_, "tunnel8bpp", "offsets table");
    }
    void run(float t) override {
        mapTunnel8(target_.pixels, table_.pixels, texture_.pixels, count(target_), tunnelOffset(track_.sample(t), t));
    }

private:
    Layer8bpp& target_;
    const Layer8bpp& texture_;
    const OffsetsTable& table_;
    KeytrackVector2& track_;
};

class TunnelLighted32bpp : public Component {
public:
    TunnelLighted32bpp(Sequencer&, TextParser& parser)
        : target_(Repository::instance().aquireAs<Layer32bpp>(parser)),
          texture_(Repository::instance().aquireAs<Layer8bpp>(parser)),
          light_(Repository::instance().aquireAs<Layer8bpp>(parser)),
          lut_(Repository::instance().aquireAs<Layer32bpp>(parser)),
          table_(Repository::instance().aquireAs<OffsetsTable>(parser)),
          track_(Repository::instance().aquireAs<KeytrackVector2>(parser)) {
        requireTexture(texture_, "tunnelLighted32bpp");
        requireCoversTarget(light_, target_, "tunnelLighted32bpp", "light map");
        requireLut(lut_, "tunnelLighted32bpp");
        requireCoversTarget(table_, target_, "tunnelLighted32bpp", "offsets table");
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
