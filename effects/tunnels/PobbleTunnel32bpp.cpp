// A tunnel of pebbles in one colour: a mask texture of round spots, staggered like
// cobbles, is mapped through a computed tunnel table; the spots take the colour through
// the frame's rendu and the rest of the target stays as it is, so the tunnel can be laid
// over any picture. It travels and turns at a fixed pace.
#include <memory>
#include <vector>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class PobbleTunnel32bpp : public Component {
public:
    static constexpr float rowsPerSecond = 64.0f;
    static constexpr float columnsPerSecond = 16.0f;
    static constexpr int cell = 32;          // texels per pebble cell, both ways
    static constexpr int pebbleRadius = 11;  // texels
    static constexpr float depthPerWidth = 16.0f;

    PobbleTunnel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          rendu_(in.symbol<KeytrackInt>()),
          mask_(65536) {
        const int w = target_.width, h = target_.height;
        table_ = std::make_unique<Layer32bpp>(w, h);
        generateTunnelTable({table_->pixels, w, h, w}, static_cast<float>(w >> 1), static_cast<float>(h >> 1), 1.0f,
                            depthPerWidth * static_cast<float>(w), 4.0f);
        for (int v = 0; v < 256; ++v)
            for (int u = 0; u < 256; ++u) {
                // Every other ring of cells is shifted by half a cell.
                const int su = u + ((v / cell) % 2) * (cell / 2);
                const int du = su % cell - cell / 2, dv = v % cell - cell / 2;
                mask_[v * 256 + u] = du * du + dv * dv <= pebbleRadius * pebbleRadius ? 1 : 0;
            }
    }
    void run(float t) override {
        maskTunnel(target_.pixels, table_->pixels, mask_.data(), static_cast<std::size_t>(target_.pixelCount()),
                   tunnelOffset(rowsPerSecond, columnsPerSecond, t), colour_.value, rendu_.sample(t));
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackInt& rendu_;
    std::vector<std::uint8_t> mask_;  // 256 x 256, 1 on a pebble
    std::unique_ptr<Layer32bpp> table_;
};

VZ_COMPONENT("pobbleTunnel32bpp", PobbleTunnel32bpp)

}  // namespace vz
