// The sprites that follow a sprite track: plain with a rendu track, through an alpha
// map, through their own alpha byte, and 8-bit through a palette.
#include <string>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "effects/sprites/KeyframedSprite.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// Alpha 0 keeps the target, 32 and above copy the source, 1-31 blend by that level.
inline void alphaPixel(std::uint32_t alpha, std::uint32_t s, std::uint32_t& d) {
    if (alpha == 0) return;
    d = alpha >= 32 ? s : alphaMapTable[alpha](s, d);
}

}  // namespace

class SpriteKeytrack32bpp : public Component {
public:
    SpriteKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          track_(in.symbol<KeytrackSprite>()),
          rendu_(in.symbol<KeytrackInt>()),
          sprite_(picture_.width, picture_.height) {}
    void run(float t) override {
        const int rendu = rendu_.sample(t);
        if (const auto run = sprite_.frame(track_, t, target_))
            drawSprite(target_, *run, picture_.pixels, picture_.width, rendu);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    KeytrackSprite& track_;
    KeytrackInt& rendu_;
    KeyframedSprite sprite_;
};

// The alpha map gives each picture pixel its opacity (0-32); black is not special.
class SpriteAlphamapKeytrack32bpp : public Component {
public:
    SpriteAlphamapKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          alpha_(in.symbol<Layer8bpp>()),
          track_(in.symbol<KeytrackSprite>()),
          sprite_(picture_.width, picture_.height) {
        if (alpha_.width != picture_.width || alpha_.height < picture_.height)
            in.fail("the alpha map is " + std::to_string(alpha_.width) + "x" + std::to_string(alpha_.height) +
                    ", the picture " + std::to_string(picture_.width) + "x" + std::to_string(picture_.height));
    }
    void run(float t) override {
        const auto run = sprite_.frame(track_, t, target_);
        if (!run) return;
        const std::uint32_t* pixels = picture_.pixels;
        const std::uint8_t* alpha = alpha_.pixels;
        walkSprite(target_, *run, picture_.width,
                   [=](std::uint32_t& d, std::size_t i) { alphaPixel(alpha[i], pixels[i], d); });
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    const Layer8bpp& alpha_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

// Each pixel's alpha byte (bits 24-31) is its opacity, as in the alpha-map sprite.
class SpriteAlphachanelKeytrack32bpp : public Component {
public:
    SpriteAlphachanelKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          track_(in.symbol<KeytrackSprite>()),
          sprite_(picture_.width, picture_.height) {}
    void run(float t) override {
        const auto run = sprite_.frame(track_, t, target_);
        if (!run) return;
        const std::uint32_t* pixels = picture_.pixels;
        walkSprite(target_, *run, picture_.width, [=](std::uint32_t& d, std::size_t i) {
            const std::uint32_t s = pixels[i];
            alphaPixel(s >> 24, s, d);
        });
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

// An 8-bit picture through its palette; an index whose colour is black is transparent.
class SpriteBitmapKeytrack32bpp : public Component {
public:
    SpriteBitmapKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer8bpp>()),
          palette_(in.symbol<Palette>()),
          track_(in.symbol<KeytrackSprite>()),
          sprite_(picture_.width, picture_.height) {}
    void run(float t) override {
        const auto run = sprite_.frame(track_, t, target_);
        if (!run) return;
        const std::uint8_t* indices = picture_.pixels;
        const std::uint32_t* colours = palette_.colors.data();
        walkSprite(target_, *run, picture_.width, [=](std::uint32_t& d, std::size_t i) {
            if (const std::uint32_t s = colours[indices[i]]) d = s;
        });
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& picture_;
    const Palette& palette_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

VZ_COMPONENT("spriteKeytrack32bpp", SpriteKeytrack32bpp)
VZ_COMPONENT("spriteAlphamapKeytrack32bpp", SpriteAlphamapKeytrack32bpp)
VZ_COMPONENT("spriteAlphachanelKeytrack32bpp", SpriteAlphachanelKeytrack32bpp)
VZ_COMPONENT("spriteBitmapKeytrack32bpp", SpriteBitmapKeytrack32bpp)

}  // namespace vz
