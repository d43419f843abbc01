// Whole-layer copies. Layers of different shapes are combined as flat runs of the
// shorter pixel count, not as clipped rectangles: a narrower source shears across the
// target's rows. Every run also stops at the end of the maps it reads. Then the copies
// of a part of a layer: a cropped window, a halved layer, a frame of a film strip.
#include "core/Palette.hpp"
#include "effects/layers/AlphaBytes.hpp"
#include "effects/layers/Videos.hpp"
#include "effects/palettes/Lut.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/LayerRect.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "effects/rendu/ScaleDown.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

class CopyLayer32bpp : public Component {
public:
    CopyLayer32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        copyRun(target_.pixels, source_.pixels, sharedCount(target_, source_), sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    KeytrackInt& rendu_;
};

class CopyLayerAlphamap32bpp : public Component {
public:
    CopyLayerAlphamap32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), alpha_(in.symbol<Layer8bpp>()) {}

    void run(float) override {
        copyRunAlphaMap(target_.pixels, source_.pixels, alpha_.pixels, sharedCount(target_, source_, alpha_));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    const Layer8bpp& alpha_;
};

class CopyLayerAlphachanel32bpp : public Component {
public:
    CopyLayerAlphachanel32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {}

    void run(float) override { copyRunSourceAlpha(target_.pixels, source_.pixels, sharedCount(target_, source_)); }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
};

// Byte i of the 8-bit layer becomes the alpha byte of target pixel i, for every target
// pixel the 8-bit layer reaches.
class CopyAlphachannel32bpp : public Component {
public:
    CopyAlphachannel32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), alpha_(in.symbol<Layer8bpp>()) {}

    void run(float) override { copyAlphaBytes(target_.pixels, alpha_.pixels, sharedCount(target_, alpha_)); }

private:
    Layer32bpp& target_;
    const Layer8bpp& alpha_;
};

class CopyBitmapLayer32bpp : public Component {
public:
    CopyBitmapLayer32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer8bpp>()), palette_(in.symbol<Palette>()) {}

    void run(float) override {
        copyRunPalette(target_.pixels, source_.pixels, palette_.colors.data(), sharedCount(target_, source_));
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& source_;
    const Palette& palette_;
};

class CopyLayer8bpp : public Component {
public:
    CopyLayer8bpp(ComponentContext& in) : target_(in.symbol<Layer8bpp>()), source_(in.symbol<Layer8bpp>()) {}

    void run(float) override { copyRun8(target_.pixels, source_.pixels, sharedCount(target_, source_)); }

private:
    Layer8bpp& target_;
    const Layer8bpp& source_;
};

// An 8-bit picture lit by an 8-bit light map through a colour look-up table.
class Combination32bpp : public Component {
public:
    Combination32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          image_(in.symbol<Layer8bpp>()),
          light_(in.symbol<Layer8bpp>()),
          lut_(in.symbol<Layer32bpp>()) {
        in.requireFullTable("the lut", lut_);
    }

    void run(float) override {
        lightThroughLut(target_.pixels, image_.pixels, light_.pixels, lut_.pixels,
                        sharedCount(target_, image_, light_));
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& image_;
    const Layer8bpp& light_;
    const Layer32bpp& lut_;
};

// The target is filled from the source's pixel (posX, posY) on, one target row per source
// row. The window is not clipped to the source: past its right edge a row reads on into
// the following source row. Pixels that would come from outside the source's memory are
// left as they are.
class Crop32bpp : public Component {
public:
    Crop32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()), posX_(in.integer()), posY_(in.integer()) {
        in.requireDistinct(target_, source_);
    }

    void run(float) override {
        target_.posX = 0;
        target_.posY = 0;
        copyRect(target_, source_, posX_, posY_, target_.width, target_.height, renduNormal);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    int posX_;
    int posY_;
};

// The target is written with a row stride of half the source's width whatever its own
// width; rows beyond the target's memory are not written.
class ScaleDown32bpp : public Component {
public:
    ScaleDown32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {}

    void run(float) override { scaleDown(target_, source_); }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
};

class PlayVideo32bpp : public Component {
public:
    PlayVideo32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          image_(in.symbol<Layer32bpp>()),
          strip_(image_, in.integerWithin("numFrames", 1, Layer::maxSide)),
          frame_(in.symbol<KeytrackInt>()),
          rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        playFrame(target_, image_, strip_, frame_.sample(localTime), sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& image_;
    FilmStrip strip_;
    KeytrackInt& frame_;
    KeytrackInt& rendu_;
};

class PlayBitmapVideo32bpp : public Component {
public:
    PlayBitmapVideo32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          image_(in.symbol<Layer8bpp>()),
          palette_(in.symbol<Palette>()),
          strip_(image_, in.integerWithin("numFrames", 1, Layer::maxSide)),
          frame_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override {
        playFrame(target_, image_, palette_.colors.data(), strip_, frame_.sample(localTime));
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& image_;
    const Palette& palette_;
    FilmStrip strip_;
    KeytrackInt& frame_;
};

}  // namespace

VZ_COMPONENT("copyLayer32bpp", CopyLayer32bpp)
VZ_COMPONENT("copyLayerAlphamap32bpp", CopyLayerAlphamap32bpp)
VZ_COMPONENT("copyLayerAlphachanel32bpp", CopyLayerAlphachanel32bpp)
VZ_COMPONENT("copyAlphachannel32bpp", CopyAlphachannel32bpp)
VZ_COMPONENT("copyBitmapLayer32bpp", CopyBitmapLayer32bpp)
VZ_COMPONENT("copyLayer8bpp", CopyLayer8bpp)
VZ_COMPONENT("combination32bpp", Combination32bpp)
VZ_COMPONENT("crop", Crop32bpp)
VZ_COMPONENT("scaleDown32bpp", ScaleDown32bpp)
VZ_COMPONENT("playVideo32bpp", PlayVideo32bpp)
VZ_COMPONENT("playBitmapVideo32bpp", PlayBitmapVideo32bpp)

}  // namespace vz
