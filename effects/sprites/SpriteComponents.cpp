// The sprites that follow a sprite track: plain with a rendu track, through an alpha
// map, through their own alpha byte, and 8-bit through a palette; and the sprite that
// turns.
#include <string>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "effects/sprites/KeyframedSprite.hpp"
#include "effects/sprites/SpriteRotation.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

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

// The alpha map gives each picture pixel its opacity (0-32).
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
        if (const auto run = sprite_.frame(track_, t, target_))
            drawSpriteAlphaMap(target_, *run, picture_.pixels, alpha_.pixels, picture_.width);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    const Layer8bpp& alpha_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

class SpriteAlphachanelKeytrack32bpp : public Component {
public:
    SpriteAlphachanelKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          track_(in.symbol<KeytrackSprite>()),
          sprite_(picture_.width, picture_.height) {}
    void run(float t) override {
        if (const auto run = sprite_.frame(track_, t, target_))
            drawSpriteOwnAlpha(target_, *run, picture_.pixels, picture_.width);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

class SpriteBitmapKeytrack32bpp : public Component {
public:
    SpriteBitmapKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer8bpp>()),
          palette_(in.symbol<Palette>()),
          track_(in.symbol<KeytrackSprite>()),
          sprite_(picture_.width, picture_.height) {}
    void run(float t) override {
        if (const auto run = sprite_.frame(track_, t, target_))
            drawSpritePalette(target_, *run, picture_.pixels, palette_.colors.data(), picture_.width);
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& picture_;
    const Palette& palette_;
    KeytrackSprite& track_;
    KeyframedSprite sprite_;
};

// The turning sprite: its centre (x, y) and depth z follow a Vector3 track, its zoom and
// angle follow float tracks, and its pixels go through a rendu track. The drawn scale is
// zoom / (1 + z): depth 0 is the screen plane, each unit of depth further away shrinks
// it, and a depth of -1 or less (at or behind the eye) draws nothing.
class SpriteRotKeytrack32bpp : public Component {
public:
    SpriteRotKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          position_(in.symbol<KeytrackVector3>()),
          zoom_(in.symbol<KeytrackFloat>()),
          rotation_(in.symbol<KeytrackFloat>()),
          rendu_(in.symbol<KeytrackInt>()) {}

    void run(float t) override {
        const Vector3 at = position_.sample(t);
        const float depth = 1.0f + at.z;
        if (!(depth > 0.0f)) return;
        const float scale = zoom_.sample(t) / depth;
        if (!(scale > 0.0f)) return;
        RotatedSprite r = rotateSprite(picture_.width, picture_.height, scale, rotation_.sample(t));
        placeSprite(r.box, target_, at.x, at.y);
        if (const auto run = clipSprite(r.box, target_))
            drawRotatedSprite(target_, picture_, r, *run, rendu_.sample(t));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& picture_;
    KeytrackVector3& position_;
    KeytrackFloat& zoom_;
    KeytrackFloat& rotation_;
    KeytrackInt& rendu_;
};

}  // namespace

VZ_COMPONENT("spriteKeytrack32bpp", SpriteKeytrack32bpp)
VZ_COMPONENT("spriteAlphamapKeytrack32bpp", SpriteAlphamapKeytrack32bpp)
VZ_COMPONENT("spriteAlphachanelKeytrack32bpp", SpriteAlphachanelKeytrack32bpp)
VZ_COMPONENT("spriteBitmapKeytrack32bpp", SpriteBitmapKeytrack32bpp)
VZ_COMPONENT("spriteRotKeytrack32bpp", SpriteRotKeytrack32bpp)

}  // namespace vz
