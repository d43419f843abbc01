#pragma once
// Film strips: numFrames pictures stacked top to bottom in one tall image, played by
// copying one frame as a flat run into the target.
#include <cstddef>
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

struct FilmStrip {
    // numFrames must be at least 1 (the components check it when they are built).
    FilmStrip(const Layer& image, int numFrames);

    // The first pixel of the frame a frame-track value selects: value remainder numFrames,
    // truncating like signed integer division, with a negative remainder brought back into
    // 0 .. numFrames - 1 by adding numFrames (frame -1 is the last one), so no value
    // selects memory before the image.
    std::int64_t frameStart(int trackValue) const;

    // Pixels of one frame (frame height x image width, the frame height being the image
    // height / numFrames), cut to what the target holds.
    std::size_t countFor(const Layer& target) const;

    int numFrames;
    std::int64_t framePixels;
};

// Frame `trackValue` of a 32-bit strip copied onto the target's first pixels with `rendu`.
// The strip may be the target itself: frame 0 then lands on itself and any other frame
// lies wholly after the pixels it covers.
void playFrame(Layer32bpp& target, const Layer32bpp& image, const FilmStrip& strip, int trackValue, int rendu);
// Frame `trackValue` of an 8-bit strip through the palette colours.
void playFrame(Layer32bpp& target, const Layer8bpp& image, const std::uint32_t* palette, const FilmStrip& strip,
               int trackValue);

}  // namespace vz
