#pragma once
// Uncompressed 24-bit BMP, rows bottom-up padded to 4 bytes.
#include "tools/assetgen/Bytes.hpp"
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

// Any width is written correctly; readers that skip padding in whole pixels only
// read rows right when width x 3 is a multiple of 4, so the demo uses such widths.
Bytes encodeBmp24(const RgbPicture& picture);

}  // namespace vz::assetgen
