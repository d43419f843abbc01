// Components that change a palette (or one colour) every frame.
#include <array>

#include "core/Palette.hpp"
#include "effects/palettes/ColourMix.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// Channel = truncate(background + (foreground - background) x f), f from the float track
// and not limited to 0..1; a channel pushed past 0-255 wraps to its low byte. The alpha
// byte of the result is the background's.
std::uint32_t blendWithAlphaOfFrom(std::uint32_t from, std::uint32_t to, float factor) {
    return (from & 0xFF000000u) | mixColourTruncated(from, to, factor);
}

}  // namespace

class BlendColor : public Component {
public:
    BlendColor(ComponentContext& in)
        : target_(in.symbol<Color>()),
          background_(in.symbol<Color>()),
          foreground_(in.symbol<Color>()),
          factor_(in.symbol<KeytrackFloat>()) {}

    void run(float localTime) override {
        target_.value = blendWithAlphaOfFrom(background_.value, foreground_.value, factor_.sample(localTime));
    }

private:
    Color& target_;
    const Color& background_;
    const Color& foreground_;
    KeytrackFloat& factor_;
};

class BlendPalette : public Component {
public:
    BlendPalette(ComponentContext& in)
        : target_(in.symbol<Palette>()),
          background_(in.symbol<Palette>()),
          foreground_(in.symbol<Palette>()),
          factor_(in.symbol<KeytrackFloat>()) {}

    void run(float localTime) override {
        const float factor = factor_.sample(localTime);
        for (int i = 0; i < 256; ++i)
            target_.colors[i] = blendWithAlphaOfFrom(background_.colors[i], foreground_.colors[i], factor);
    }

private:
    Palette& target_;
    const Palette& background_;
    const Palette& foreground_;
    KeytrackFloat& factor_;
};

// k = track value AND 255: target entries 0..k-1 take source entries k..2k-1, entries
// k..255 take source entries 0..255-k. For k above 128 the first block would run past
// source entry 255; it wraps to the start of the source instead. The source is read
// from a copy, so a palette rotated into itself gives the same result.
class RotatePalette : public Component {
public:
    RotatePalette(ComponentContext& in)
        : target_(in.symbol<Palette>()), source_(in.symbol<Palette>()), shift_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        const int k = shift_.sample(localTime) & 255;
        const std::array<std::uint32_t, 256> source = source_.colors;
        for (int i = 0; i < k; ++i) target_.colors[i] = source[(k + i) & 255];
        for (int i = k; i < 256; ++i) target_.colors[i] = source[i - k];
    }

private:
    Palette& target_;
    const Palette& source_;
    KeytrackInt& shift_;
};

class SetPaletteAlpha : public Component {
public:
    SetPaletteAlpha(ComponentContext& in) : target_(in.symbol<Palette>()), alpha_(in.byte()) {}

    void run(float) override { target_.setAlpha(alpha_); }

private:
    Palette& target_;
    std::uint8_t alpha_;
};

class SetPaletteAlphagradient : public Component {
public:
    SetPaletteAlphagradient(ComponentContext& in) : target_(in.symbol<Palette>()) {}

    void run(float) override { target_.setAlphaGradient(); }

private:
    Palette& target_;
};

VZ_COMPONENT("blendColor", BlendColor)
VZ_COMPONENT("blendPalette", BlendPalette)
VZ_COMPONENT("rotatePalette", RotatePalette)
VZ_COMPONENT("setPaletteAlpha", SetPaletteAlpha)
VZ_COMPONENT("setPaletteAlphagradient", SetPaletteAlphagradient)

}  // namespace vz
