// The components that write one line of text with a font picture: keyframed, wobbling
// glyph by glyph, and sliding in glyph after glyph.
#include <cmath>
#include <string>

#include "core/Layer.hpp"
#include "core/error.hpp"
#include "effects/sprites/TextLayout.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// The font picture, checked to hold one row or more per glyph cell.
const Layer32bpp& fontParameter(ComponentContext& in) {
    const Layer32bpp& font = in.symbol<Layer32bpp>();
    if (font.height / TextStyle{}.cells <= 0)
        in.fail("the font picture is " + std::to_string(font.width) + "x" + std::to_string(font.height) +
                ", lower than its " + std::to_string(TextStyle{}.cells) + " glyph cells");
    return font;
}

// Position and scale of the line from a sprite track.
void follow(TextStyle& style, KeytrackSprite& track, float t) {
    const SpriteValue key = track.sample(t);
    style.x = key.x;
    style.y = key.y;
    style.scaleX = key.scaleX;
    style.scaleY = key.scaleY;
}

class PutStringKeytrack32bpp : public Component {
public:
    PutStringKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          font_(fontParameter(in)),
          track_(in.symbol<KeytrackSprite>()),
          rendu_(in.symbol<KeytrackInt>()),
          spacing_(in.symbol<KeytrackFloat>()),
          text_(in.word()) {}
    void run(float t) override {
        follow(style_, track_, t);
        style_.spacing = spacing_.sample(t);
        style_.rendu = rendu_.sample(t);
        drawText(target_, font_, style_, text_.c_str());
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& font_;
    KeytrackSprite& track_;
    KeytrackInt& rendu_;
    KeytrackFloat& spacing_;
    std::string text_;
    TextStyle style_;
};

// Each glyph circles round its place on its own phase: x by amplX, y by amplY
// (normalised units), so a wave runs along the line.
class PutStringCool32bpp : public Component {
public:
    static constexpr float wobbleRate = 4.0f;  // radians per second
    static constexpr float glyphPhase = 0.6f;  // radians between neighbouring glyphs

    PutStringCool32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          font_(fontParameter(in)),
          track_(in.symbol<KeytrackSprite>()),
          amplitudeX_(in.real()),
          amplitudeY_(in.real()),
          rendu_(in.symbol<KeytrackInt>()),
          text_(in.word()) {
        // The line has no spacing parameter: an extra glyph width puts the glyphs side
        // by side (the pen advances (width + spacing) / W normalised units, half that
        // many pixels), so the wave has room to move them.
        style_.spacing = static_cast<float>(font_.width);
    }
    void run(float t) override {
        follow(style_, track_, t);
        style_.rendu = rendu_.sample(t);
        layOutText(target_, font_, style_, text_.c_str(), [&](int index, int cell, float pen) {
            const float phase = wobbleRate * t + glyphPhase * static_cast<float>(index);
            drawGlyph(target_, font_, style_, cell, pen + amplitudeX_ * std::sin(phase),
                      style_.y + amplitudeY_ * std::cos(phase));
        });
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& font_;
    KeytrackSprite& track_;
    float amplitudeX_;
    float amplitudeY_;
    KeytrackInt& rendu_;
    std::string text_;
    TextStyle style_;
};

// Glyph i enters at i * delay seconds: it slides in from beyond the right edge to its
// place in slideTime seconds, slowing down as it arrives, and then stays.
class PutStringSlide32bpp : public Component {
public:
    static constexpr float slideTime = 0.5f;

    PutStringSlide32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          font_(fontParameter(in)),
          track_(in.symbol<KeytrackSprite>()),
          delay_(in.real()),
          rendu_(in.symbol<KeytrackInt>()) {
        style_.spacing = in.real();
        text_ = in.word();
    }
    void run(float t) override {
        follow(style_, track_, t);
        style_.rendu = rendu_.sample(t);
        // A glyph centred here is wholly past the right edge (its half width is
        // width * scaleX / W in normalised units).
        const float offstage = 1.0f + 2.0f * static_cast<float>(font_.width) * std::fabs(style_.scaleX) /
                                          static_cast<float>(target_.width);
        layOutText(target_, font_, style_, text_.c_str(), [&](int index, int cell, float pen) {
            const float since = t - delay_ * static_cast<float>(index);
            if (since < 0.0f) return;
            float x = pen;
            if (since < slideTime) {
                const float left = 1.0f - since / slideTime;  // share of the way still to go
                x = pen + (offstage - pen) * left * left;
            }
            drawGlyph(target_, font_, style_, cell, x, style_.y);
        });
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& font_;
    KeytrackSprite& track_;
    float delay_;
    KeytrackInt& rendu_;
    std::string text_;
    TextStyle style_;
};

}  // namespace

VZ_COMPONENT("PutStringKeytrack32bpp", PutStringKeytrack32bpp)
VZ_COMPONENT("PutStringCool32bpp", PutStringCool32bpp)
VZ_COMPONENT("PutStringSlide32bpp", PutStringSlide32bpp)

}  // namespace vz
