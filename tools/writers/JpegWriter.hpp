#pragma once
// Baseline JPEG through libjpeg.
#include "tools/writers/Bytes.hpp"
#include "tools/writers/Picture.hpp"

namespace vz::writers {

enum class JpegColour {
    halvedChroma,  // YCbCr with the colour halved both ways, as libjpeg does by default
    fullChroma,    // YCbCr with every component at full resolution
    grey,          // one component: the picture's luminance
};

// Uses the exact integer DCT so that every machine writes the same bytes.
Bytes encodeJpeg(const RgbPicture& picture, int quality, JpegColour colour = JpegColour::halvedChroma);

}  // namespace vz::writers
