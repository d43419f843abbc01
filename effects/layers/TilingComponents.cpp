// Layers tiled over the target: shifted by random offsets redrawn every few seconds, or
// scrolled by two offset tracks with wrap-around.
#include <string>

#include "effects/layers/RandomStep.hpp"
#include "effects/layers/Tiling.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// The two generators of one component, the X axis taking its seed first.
struct RandomOffsets {
    RandomOffsets(ComponentContext& in)
        // Amplitudes beyond a layer's largest side only move whole tiles out of sight and
        // would overflow the generator's arithmetic, so they are refused.
        : maxX(in.integerWithin("maxOffsetX", 0, Layer::maxSide)),
          maxY(in.integerWithin("maxOffsetY", 0, Layer::maxSide)),
          fps(in.integer()),
          x(maxX, fps),
          y(maxY, fps) {}
    int maxX, maxY, fps;
    RandomStep x, y;
};

// Truncating remainder: a negative track value gives a negative remainder, so the first
// tile starts right of (or below) the origin and the band before it stays as it was.
int wrappedOffset(KeytrackInt& track, float localTime, int size) { return track.sample(localTime) % size; }

class CopyLayerRandomOffset32bpp : public Component {
public:
    CopyLayerRandomOffset32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          offsets_(in),
          rendu_(in.symbol<KeytrackInt>()) {
        in.requireDistinct(target_, source_);
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
    CopyBitmapLayerRandomOffset32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer8bpp>()),
          palette_(in.symbol<Palette>()),
          offsets_(in) {}

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
    CopyLayerWrapAround32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          offsetX_(in.symbol<KeytrackInt>()),
          offsetY_(in.symbol<KeytrackInt>()),
          rendu_(in.symbol<KeytrackInt>()) {
        in.requireDistinct(target_, source_);
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
    CopyBitmapLayerWrapAround32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer8bpp>()),
          palette_(in.symbol<Palette>()),
          offsetX_(in.symbol<KeytrackInt>()),
          offsetY_(in.symbol<KeytrackInt>()) {}

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

}  // namespace

VZ_COMPONENT("copyLayerRandomOffset32bpp", CopyLayerRandomOffset32bpp)
VZ_COMPONENT("copyBitmapLayerRandomOffset32bpp", CopyBitmapLayerRandomOffset32bpp)
VZ_COMPONENT("copyLayerWrapAround32bpp", CopyLayerWrapAround32bpp)
VZ_COMPONENT("copyBitmapLayerWrapAround32bpp", CopyBitmapLayerWrapAround32bpp)

}  // namespace vz
