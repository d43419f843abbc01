#include "effects/layers/Videos.hpp"

#include <algorithm>

#include "effects/rendu/BulkKernels.hpp"

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

}  // namespace vz
