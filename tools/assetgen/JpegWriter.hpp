#pragma once
// Baseline JPEG through libjpeg.
#include "tools/assetgen/Bytes.hpp"
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

// Uses the exact integer DCT so that every machine writes the same bytes.
Bytes encodeJpeg(const RgbPicture& picture, int quality);

}  // namespace vz::assetgen
