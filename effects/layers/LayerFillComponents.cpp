// Components that fill a whole layer: with a colour, through an alpha map, with a fade
// between two colours, row by row (fadeLayer32bpp), and the alpha byte alone.
#include "core/Palette.hpp"
#include "effects/layers/AlphaBytes.hpp"
#include "effects/palettes/ColourMix.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/LayerRect.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

class FillColor32bpp : public Component {
public:
    FillColor32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), background_(in.symbol<Color>()), rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        fillRun(target_.pixels, background_.value, sharedCount(target_), sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    Color& background_;
    KeytrackInt& rendu_;
};

class FillColorAlphamap32bpp : public Component {
public:
    FillColorAlphamap32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), background_(in.symbol<Color>()), alpha_(in.symbol<Layer8bpp>()) {}

    // The map is read for as many pixels as the target has; a smaller map stops the fill
    // at its own end.
    void run(float) override {
        fillRunAlphaMap(target_.pixels, background_.value, alpha_.pixels, sharedCount(target_, alpha_));
    }

private:
    Layer32bpp& target_;
    Color& background_;
    Layer8bpp& alpha_;
};

class FillColor8bpp : public Component {
public:
    FillColor8bpp(ComponentContext& in) : target_(in.symbol<Layer8bpp>()), value_(in.byte()) {}

    void run(float) override { fillRun8(target_.pixels, value_, sharedCount(target_)); }

private:
    Layer8bpp& target_;
    std::uint8_t value_;
};

// Fades from the background colour to the foreground over the first second of local time,
// then holds the foreground. Before time 0 the factor goes below 0 (no lower limit).
class FadeColors32bpp : public Component {
public:
    FadeColors32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          background_(in.symbol<Color>()),
          foreground_(in.symbol<Color>()),
          rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        const float factor = std::min(localTime, 1.0f);
        const std::uint32_t colour = mixColourRounded(background_.value, foreground_.value, factor);
        fillRun(target_.pixels, colour, sharedCount(target_), sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    Color& background_;
    Color& foreground_;
    KeytrackInt& rendu_;
};

// Up to local time 1.0 this covers the top rows of the target: the rectangle fill is
// given the target's pixel count as its width (cut to the layer) and 1 + t x 32 rows as
// its height, so 1 row shows at t = 0 and 33 at t = 1, each one column short of the
// right edge like every clipped fill. After that the whole layer takes the colour.
class FadeLayer32bpp : public Component {
public:
    FadeLayer32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), foreground_(in.symbol<Color>()) {}

    void run(float localTime) override {
        if (!(localTime <= 1.0f)) {  // not a number counts as late
            fillRun(target_.pixels, foreground_.value, sharedCount(target_), renduNormal);
            return;
        }
        const float level = localTime * 32.0f + 1.0f;
        if (level < 1.0f) return;  // before time 0 no row is due (and no huge negative cast)
        fillRect(target_, static_cast<int>(target_.pixelCount()), static_cast<int>(level), foreground_.value,
                 renduNormal);
    }

private:
    Layer32bpp& target_;
    Color& foreground_;
};

class FillAlphachannel32bpp : public Component {
public:
    FillAlphachannel32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), alpha_(in.byte()) {}

    void run(float) override { fillAlphaBytes(target_.pixels, alpha_, sharedCount(target_)); }

private:
    Layer32bpp& target_;
    std::uint8_t alpha_;
};

}  // namespace

VZ_COMPONENT("fillColor32bpp", FillColor32bpp)
VZ_COMPONENT("fillColorAlphamap32bpp", FillColorAlphamap32bpp)
VZ_COMPONENT("fillColor8bpp", FillColor8bpp)
VZ_COMPONENT("fadeColors32bpp", FadeColors32bpp)
VZ_COMPONENT("fadeLayer32bpp", FadeLayer32bpp)
VZ_COMPONENT("fillAlphachannel32bpp", FillAlphachannel32bpp)

}  // namespace vz
