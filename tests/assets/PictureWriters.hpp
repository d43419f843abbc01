#pragma once
// Small encoders that write the test pictures, so every fixture is made by the tests.
#include <array>
#include <cstdint>
#include <vector>

namespace vz::test {

using Bytes = std::vector<std::uint8_t>;
using Rgb = std::uint32_t;  // 0x00RRGGBB

// 8-bit one-plane PCX; repeats become runs, and so do single bytes of 0xC0 and above.
Bytes makePcx(int width, int height, const Bytes& indices, const std::array<Rgb, 256>& palette);

struct GifLayout {
    int screenWidth = 0;  // 0: the image's size
    int screenHeight = 0;
    int globalTableEntries = 256;  // a power of two from 2 to 256, or 0 for none
    bool interlaced = false;       // only the flag: rows are written as given
    int minimumCodeSize = 8;
};
// `table` holds the global table's colours; missing entries are black.
Bytes makeGif(int width, int height, const Bytes& indices, const std::vector<Rgb>& table, const GifLayout& layout = {});
// The LZW code stream of `indices` with its end code, cut into sub-blocks, terminator included.
Bytes gifImageData(const Bytes& indices, int minimumCodeSize);

// Standard BMP files: rows bottom up, padded to 4 bytes, correct file size.
Bytes makeBmp24(int width, int height, const std::vector<Rgb>& pixels);
Bytes makeBmpIndexed(int bitCount, int width, int height, const Bytes& indices, const std::vector<Rgb>& table);
// A BMP whose pixel data is `data` as given, with compression 1 (8 bits) or 2 (4 bits).
Bytes makeBmpRle(int bitCount, int width, int height, const Bytes& data, const std::vector<Rgb>& table);

// Baseline JPEG at quality 100 without chroma subsampling; samples are grey bytes
// (channels 1) or red, green, blue (channels 3).
Bytes makeJpeg(int width, int height, int channels, const Bytes& samples);

}  // namespace vz::test
