// Components that change a palette (or one colour) every frame.
#include "core/Palette.hpp"
#include "effects/palettes/PaletteChanges.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

class BlendColor : public Component {
public:
    BlendColor(ComponentContext& in)
        : target_(in.symbol<Color>()),
          background_(in.symbol<Color>()),
          foreground_(in.symbol<Color>()),
          factor_(in.symbol<KeytrackFloat>()) {}

    void run(float localTime) override {
        target_.value = blendKeepingAlpha(background_.value, foreground_.value, factor_.sample(localTime));
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

    void run(float localTime) override { blendPalettes(target_, background_, foreground_, factor_.sample(localTime)); }

private:
    Palette& target_;
    const Palette& background_;
    const Palette& foreground_;
    KeytrackFloat& factor_;
};

class RotatePalette : public Component {
public:
    RotatePalette(ComponentContext& in)
        : target_(in.symbol<Palette>()), source_(in.symbol<Palette>()), shift_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override { rotatePalette(target_, source_, shift_.sample(localTime)); }

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

}  // namespace

VZ_COMPONENT("blendColor", BlendColor)
VZ_COMPONENT("blendPalette", BlendPalette)
VZ_COMPONENT("rotatePalette", RotatePalette)
VZ_COMPONENT("setPaletteAlpha", SetPaletteAlpha)
VZ_COMPONENT("setPaletteAlphagradient", SetPaletteAlphagradient)

}  // namespace vz
