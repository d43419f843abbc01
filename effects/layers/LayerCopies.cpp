// Whole-layer copies. Layers of different shapes are combined as flat runs of the
// shorter pixel count, not as clipped rectangles: a narrower source shears across the
// target's rows. Every run also stops at the end of the maps it reads.
#include "core/Palette.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

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

    void run(float) override {
        std::uint32_t* pixel = target_.pixels;
        const std::uint8_t* alpha = alpha_.pixels;
        for (std::size_t i = 0, n = sharedCount(target_, alpha_); i < n; ++i)
            pixel[i] = (pixel[i] & 0x00FFFFFFu) | std::uint32_t{alpha[i]} << 24;
    }

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

VZ_COMPONENT("copyLayer32bpp", CopyLayer32bpp)
VZ_COMPONENT("copyLayerAlphamap32bpp", CopyLayerAlphamap32bpp)
VZ_COMPONENT("copyLayerAlphachanel32bpp", CopyLayerAlphachanel32bpp)
VZ_COMPONENT("copyAlphachannel32bpp", CopyAlphachannel32bpp)
VZ_COMPONENT("copyBitmapLayer32bpp", CopyBitmapLayer32bpp)
VZ_COMPONENT("copyLayer8bpp", CopyLayer8bpp)

}  // namespace vz
