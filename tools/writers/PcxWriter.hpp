#pragma once
// 8-bit single-plane run-length PCX with the 256-colour palette at the end.
#include "tools/writers/Bytes.hpp"
#include "tools/writers/Picture.hpp"

namespace vz::writers {

// Each line is coded on its own as exactly width bytes, which the bytes-per-line field
// states. The format wants an even line length and the player takes lines as width
// bytes, so pictures meant for any reader have an even width.
Bytes encodePcx(const IndexedPicture& picture);

}  // namespace vz::writers
