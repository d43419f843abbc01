#pragma once
// GIF89a with a full 256-entry global colour table and one LZW-coded image.
#include "tools/assetgen/Bytes.hpp"
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

// The global table always has 256 entries (size field 7): some readers take 256
// entries whatever the header states, so a smaller table would derail them.
Bytes encodeGif(const IndexedPicture& picture);

}  // namespace vz::assetgen
