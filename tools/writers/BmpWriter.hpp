#pragma once
// BMP files with a 40-byte info header, rows bottom-up padded to 4 bytes.
#include "tools/writers/Bytes.hpp"
#include "tools/writers/Picture.hpp"

namespace vz::writers {

// Uncompressed 24-bit. Any width is written correctly; readers that skip padding in
// whole pixels only read rows right when width x 3 is a multiple of 4, so the demo uses
// such widths.
Bytes encodeBmp24(const RgbPicture& picture);

// Uncompressed 1, 4 or 8 bits per pixel, packed from the high bit, with the palette's
// first 2^bitCount entries as the colour table.
Bytes encodeBmpIndexed(const IndexedPicture& picture, int bitCount);

// The picture's size and colour table (as encodeBmpIndexed) around run-length data of
// 8 bits (compression 1) or 4 bits (compression 2) per pixel. The runs are written as
// given: they are made by hand to reach each case of a reader.
Bytes encodeBmpRle(const IndexedPicture& picture, int bitCount, const Bytes& runs);

}  // namespace vz::writers
