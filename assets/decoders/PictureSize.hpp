#pragma once
// The one size rule for decoded pictures: a picture is accepted when a layer of its size
// could be made. Decoders test it before they allocate, so a file claiming a huge size
// fails cleanly instead of asking for gigabytes.
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

inline bool pictureSizeAccepted(std::int64_t width, std::int64_t height) { return Layer::sizeAccepted(width, height); }

}  // namespace vz
