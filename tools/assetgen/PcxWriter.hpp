#pragma once
// 8-bit single-plane run-length PCX with the 256-colour palette at the end.
#include "tools/assetgen/Bytes.hpp"
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

// The width must be even: the format pads lines to an even byte count, and readers
// that take a line as exactly width bytes would drift otherwise.
Bytes encodePcx(const IndexedPicture& picture);

}  // namespace vz::assetgen
