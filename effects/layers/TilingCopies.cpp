// Layers tiled over the target: shifted by random offsets redrawn every few seconds, or
// scrolled by two offset tracks with wrap-around.
#include <string>

#include "effects/layers/ComponentParams.hpp"
#include "effects/layers/RandomStep.hpp"
#include "effects/layers/Tiling.hpp"
#include "script/Component.hpp"

namespace vz {

namespace {

// A maximum offset: amplitudes beyond a layer's largest side only move whole tiles out
// of sight and would overflow the generator's arithmetic, so they are refused.
int maxOffsetParam(TextParser& parser, const char* keyword, const char* name) {
    const int value = parser.getInt();
    if (value < 0 || value > Layer::maxSide)
        componentError(std::string(keyword) + " : " + name + " " + std::to_string(value) + " is not within 0 to " +
                       std::to_string(Layer::maxSide));
    return value;
}

// The two generators of one component, the X axis taking its seed first.
struct RandomOffsets {
    RandomOffsets(TextParser& parser, const char* keyword)
        : maxX(maxOffsetParam(parser, keyword, "maxOffsetX")),
          maxY(maxOffsetParam(parser, keyword, "maxOffsetY")),
          fps(parser.getInt()),
          x(maxX, fps),
          y(maxY, fps) {}
    int maxX, maxY, fps;
    RandomStep x, y;
};

// Truncating remainder: a negative track value gives a negative remainder, so the first
// tile starts right of (or below) the origin and the band before it stays as it was.
int wrappedOffset(KeytrackInt& track, float localTime, int size) { return track.sample(localTime) % size; }

}  // namespace

class CopyLayerRandomOffset32bpp : public Component {
public:
    CopyLayerRandomOffset32bpp(Sequencer&, TextParser& parser)
        : target_(resourceParam<Layer32bpp>(parser)),
          source_(resourceParam<Layer32bpp>(parser)),
          offsets_(parser, "copyLayerRandomOffset32bpp"),
          rendu_(resourceParam<KeytrackInt>(parser)) {
        requireDistinct(target_, source_, "copyLayerRandomOffset32bpp");
    }

    void run(float localTime) override {
        const int ox = static_cast<int>(offsets_.x.at(localTime));
        const int oy = static_cast<int>(offsets_.y.at(localTime));
        drawTiles(target_, source_, -ox, -oy, sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    RandomOffsets offsets_;
    KeytrackInt& rendu_;
};

class CopyBitmapLayerRandomOffset32bpp : public Component {
public:
    CopyBitmapLayerRandomOffset32bpp(Sequencer&, TextParser& parser)
        : target_(resourceParam<Layer32bpp>(parser)),
          source_(resourceParam<Layer8bpp>(parser)),
          palette_(resourceParam<Palette>(parser)),
          offsets_(parser, "copyBitmapLayerRandomOffset32bpp") {}

    void run(float localTime) override {
        const int ox = static_cast<int>(offsets_.x.at(localTime));
        const int oy = static_cast<int>(offsets_.y.at(localTime));
        drawTiles(target_, source_, palette_, -ox, -oy);
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& source_;
    const Palette& palette_;
    RandomOffsets offsets_;
};

class CopyLayerWrapAround32bpp : public Component {
public:
    CopyLayerWrapAround32bpp(Sequencer&, TextParser& parser)
        : target_(resourceParam<Layer32bpp>(parser)),
          source_(resourceParam<Layer32bpp>(parser)),
          offsetX_(resourceParam<KeytrackInt>(parser)),
          offsetY_(resourceParam<KeytrackInt>(parser)),
          rendu_(resourceParam<KeytrackInt>(parser)) {
        requireDistinct(target_, source_, "copyLayerWrapAround32bpp");
    }

    void run(float localTime) override {
        const int ox = wrappedOffset(offsetX_, localTime, source_.width);
        const int oy = wrappedOffset(offsetY_, localTime, source_.height);
        drawTiles(target_, source_, -ox, -oy, sampleRendu(rendu_, localTime));
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    KeytrackInt& offsetX_;
    KeytrackInt& offsetY_;
    KeytrackInt& rendu_;
};

class CopyBitmapLayerWrapAround32bpp : public Component {
public:
    CopyBitmapLayerWrapAround32bpp(Sequencer&, TextParser& parser)
        : target_(resourceParam<Layer32bpp>(parser)),
          source_(resourceParam<Layer8bpp>(parser)),
          palette_(resourceParam<Palette>(parser)),
          offsetX_(resourceParam<KeytrackInt>(parser)),
          offsetY_(resourceParam<KeytrackInt>(parser)) {}

    void run(float localTime) override {
        const int ox = wrappedOffset(offsetX_, localTime, source_.width);
        const int oy = wrappedOffset(offsetY_, localTime, source_.height);
        drawTiles(target_, source_, palette_, -ox, -oy);
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& source_;
    const Palette& palette_;
    KeytrackInt& offsetX_;
    KeytrackInt& offsetY_;
};

VZ_COMPONENT("copyLayerRandomOffset32bpp", CopyLayerRandomOffset32bpp)
VZ_COMPONENT("copyBitmapLayerRandomOffset32bpp", CopyBitmapLayerRandomOffset32bpp)
VZ_COMPONENT("copyLayerWrapAround32bpp", CopyLayerWrapAround32bpp)
VZ_COMPONENT("copyBitmapLayerWrapAround32bpp", CopyBitmapLayerWrapAround32bpp)

}  // namespace vz
