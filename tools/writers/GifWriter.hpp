#pragma once
// GIF89a with a global colour table and one LZW-coded image.
#include "tools/writers/Bytes.hpp"
#include "tools/writers/Picture.hpp"

namespace vz::writers {

// The defaults are the sample demo's files. The global table has 256 entries there:
// some readers take 256 entries whatever the header states, so a smaller table would
// derail them. The other choices reach the corners of a reader.
struct GifLayout {
    int screenWidth = 0;  // 0: the image's size
    int screenHeight = 0;
    int tableEntries = 256;  // the palette's first entries: a power of two from 2 to 256, or 0 for no table
    int minimumCodeSize = 8;
    bool interlaced = false;        // only the flag: the rows are coded in the order given
    bool controlExtension = false;  // a graphic control extension before the image
    bool lateClear = false;         // a full code table is cleared one code late, so a reader must hold it full
};

Bytes encodeGif(const IndexedPicture& picture, const GifLayout& layout = {});

}  // namespace vz::writers
