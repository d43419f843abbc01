// An 8-bit relief lit by a light that follows a position track (normalised -1..1 across
// the target, as sprites are placed): the target gets the brightness of every pixel,
// 0-255, to be shown through a palette or a look-up table. The light reaches half the
// smaller side of the target.
#include <algorithm>

#include "core/Layer.hpp"
#include "core/SafeNumbers.hpp"
#include "effects/procedural/Bump.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class BumpLightmap8bpp : public Component {
public:
    BumpLightmap8bpp(ComponentContext& in)
        : target_(in.symbol<Layer8bpp>()),
          relief_(in.symbol<Layer8bpp>()),
          position_(in.symbol<KeytrackVector2>()),
          spot_(std::max(1, std::min(target_.width, target_.height) / 2)) {
        in.requireDistinct(target_, relief_);
        in.requireSameSize("the relief", relief_, target_);
    }

    void run(float t) override {
        const Vector2 at = position_.sample(t);
        // Far beyond the target the light only shows black; held there so sums stay in range.
        constexpr int far = 1 << 20;
        const int lightX = clampToInt((at.x + 1.0) * target_.halfWidth, -far, far);
        const int lightY = clampToInt((at.y + 1.0) * target_.halfHeight, -far, far);
        const int h = target_.height;
        for (int y = 0; y < h; ++y)
            bumpRow(target_.row(y), relief_.row(std::max(0, y - 1)), relief_.row(y),
                    relief_.row(std::min(h - 1, y + 1)), target_.width, lightX, y - lightY, spot_);
    }

private:
    Layer8bpp& target_;
    const Layer8bpp& relief_;
    KeytrackVector2& position_;
    LightSpot spot_;
};

VZ_COMPONENT("bumpLightmap8bpp", BumpLightmap8bpp)

}  // namespace vz
