#pragma once
// PCX pictures of 8 bits per pixel in one plane, run-length encoded, with the 256-colour
// palette that follows the picture data.
#include <cstdint>
#include <span>

#include "assets/decoders/IndexedPicture.hpp"

namespace vz {

DecodeStatus decodePcx(std::span<const std::uint8_t> file, IndexedPicture& picture);

}  // namespace vz
