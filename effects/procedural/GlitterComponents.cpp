// Glittering dots and glittering sprites (Glitter.hpp). The number of twinkles is read
// once; each component takes the next seed of the show's counter when its line is read.
#include <cstdint>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/procedural/Glitter.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "effects/sprites/SpriteDrawing.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

constexpr int maxTwinkles = 65536;

}  // namespace

// Each twinkle is a small cross of light added to the target ("add"): the colour at its
// brightness in the centre, then a half, a quarter and an eighth of it along four arms.
class GlimmetDot32bpp : public Component {
public:
    static constexpr int arm = 3;

    GlimmetDot32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          count_(in.integerWithin("the number of dots", 1, maxTwinkles)),
          seed_(takeRandomSeed()) {}

    void run(float t) override {
        for (int i = 0; i < count_; ++i) {
            const Twinkle twinkle = twinkleAt(seed_, static_cast<std::uint32_t>(i), t);
            if (twinkle.brightness <= 0) continue;
            const int x = static_cast<int>((twinkle.x + 1.0f) * target_.halfWidth);
            const int y = static_cast<int>((twinkle.y + 1.0f) * target_.halfHeight);
            const auto level = static_cast<std::uint32_t>(twinkle.brightness * 256.0f);
            add(x, y, scaledColour(colour_.value, level));
            for (int k = 1; k <= arm; ++k) {
                const std::uint32_t c = scaledColour(colour_.value, level >> k);
                add(x - k, y, c);
                add(x + k, y, c);
                add(x, y - k, c);
                add(x, y + k, c);
            }
        }
    }

private:
    void add(int x, int y, std::uint32_t c) {
        if (x < 0 || y < 0 || x >= target_.width || y >= target_.height) return;
        std::uint32_t& d = target_.row(y)[x];
        d = blend::op<renduAdd>(c, d);
    }

    Layer32bpp& target_;
    const Color& colour_;
    int count_;
    std::uint32_t seed_;
};

// Each twinkle is the picture, centred on its place and scaled by its brightness (so it
// swells and shrinks), drawn like a sprite: black pixels transparent, the others through
// the rendu.
class GlimmetSprite32bpp : public Component {
public:
    GlimmetSprite32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          count_(in.integerWithin("the number of sprites", 1, maxTwinkles)),
          rendu_(in.symbol<KeytrackInt>()),
          seed_(takeRandomSeed()) {}

    void run(float t) override {
        const int rendu = sampleRendu(rendu_, t);
        for (int i = 0; i < count_; ++i) {
            const Twinkle twinkle = twinkleAt(seed_, static_cast<std::uint32_t>(i), t);
            if (twinkle.brightness <= 0) continue;
            Sprite sprite{picture_.width, picture_.height, 0, 0, twinkle.brightness, twinkle.brightness};
            drawSpriteAt(target_, sprite, twinkle.x, twinkle.y, picture_.pixels, picture_.width, rendu);
        }
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    int count_;
    KeytrackInt& rendu_;
    std::uint32_t seed_;
};

VZ_COMPONENT("glimmetDot32bpp", GlimmetDot32bpp)
VZ_COMPONENT("glimmetSprite32bpp", GlimmetSprite32bpp)

}  // namespace vz
