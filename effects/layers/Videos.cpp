#include "effects/layers/Videos.hpp"

#include <algorithm>
#include <string>

#include "core/Palette.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

FilmStrip::FilmStrip(const Layer& image, int frames)
    : numFrames(frames), framePixels(static_cast<std::int64_t>(image.height / frames) * image.width) {}

std::int64_t FilmStrip::frameStart(int trackValue) const {
    int index = trackValue % numFrames;
    if (index < 0) index += numFrames;
    return index * framePixels;
}

std::size_t FilmStrip::countFor(const Layer& target) const {
    return static_cast<std::size_t>(std::min(framePixels, target.pixelCount()));
}

void playFrame(Layer32bpp& target, const Layer32bpp& image, const FilmStrip& strip, int trackValue, int rendu) {
    copyRun(target.pixels, image.pixels + strip.frameStart(trackValue), strip.countFor(target), rendu);
}

void playFrame(Layer32bpp& target, const Layer8bpp& image, const std::uint32_t* palette, const FilmStrip& strip,
               int trackValue) {
    copyRunPalette(target.pixels, image.pixels + strip.frameStart(trackValue), palette, strip.countFor(target));
}

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

VZ_COMPONENT("playVideo32bpp", PlayVideo32bpp)
VZ_COMPONENT("playBitmapVideo32bpp", PlayBitmapVideo32bpp)

}  // namespace vz
