// A tunnel whose table is computed when the script line is read, for the target's own
// size, instead of being loaded: a round tunnel centred on the target, the texture going
// twice round the wall, its depth scaled with the width so that any resolution shows the
// same picture.
#include <memory>

#include "core/Layer.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class StylerTunnel32bpp : public Component {
public:
    static constexpr float turns = 2.0f;
    static constexpr float depthPerWidth = 16.0f;
    static constexpr float radiusOffset = 4.0f;

    StylerTunnel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), texture_(in.symbol<Layer32bpp>()), track_(in.symbol<KeytrackVector2>()) {
        in.requireFullTable("the texture", texture_);
        const int w = target_.width, h = target_.height;
        table_ = std::make_unique<Layer32bpp>(w, h);
        generateTunnelTable({table_->pixels, w, h, w}, static_cast<float>(w >> 1), static_cast<float>(h >> 1), turns,
                            depthPerWidth * static_cast<float>(w), radiusOffset);
    }
    void run(float t) override {
        mapTunnel(target_.pixels, table_->pixels, texture_.pixels, static_cast<std::size_t>(target_.pixelCount()),
                  tunnelOffset(track_.sample(t), t));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& texture_;
    KeytrackVector2& track_;
    std::unique_ptr<Layer32bpp> table_;
};

VZ_COMPONENT("stylerTunnel32bpp", StylerTunnel32bpp)

}  // namespace vz
