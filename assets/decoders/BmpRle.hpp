#pragma once
// Run-length encoded BMP pixel data (RLE8 and RLE4), rows from the bottom.
#include "assets/decoders/BmpDecoder.hpp"

namespace vz {

// `picture` is sized and cleared by the caller; pixels the stream does not reach stay 0.
DecodeStatus decodeBmpRle(ByteReader& reader, int bitsPerIndex, const Palette256& table, BmpPicture& picture);

}  // namespace vz
