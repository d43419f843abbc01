#pragma once
// Windows BMP pictures of 1, 4, 8 (uncompressed, RLE8, RLE4) and 24 bits per pixel.
// Every depth is decoded to 0x00RRGGBB words, rows from the top.
#include <cstdint>
#include <span>
#include <vector>

#include "assets/decoders/IndexedPicture.hpp"

namespace vz {

// The file header and the information header, field by field as stored.
struct BmpHeader {
    char type[3] = {};  // "BM" or "BA", NUL-terminated
    std::uint32_t fileSize = 0;
    std::uint32_t reserved = 0;
    std::uint32_t dataOffset = 0;
    std::uint32_t headerSize = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint16_t planes = 0;
    std::uint16_t bitCount = 0;
    std::uint32_t compression = 0;
    std::uint32_t imageSize = 0;
    std::int32_t xResolution = 0;
    std::int32_t yResolution = 0;
    std::uint32_t colorsUsed = 0;
    std::uint32_t colorsImportant = 0;
};

struct BmpPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

// rejected: the type is neither "BM" nor "BA".
DecodeStatus readBmpHeader(std::span<const std::uint8_t> file, BmpHeader& header);
bool bmpBitCountSupported(const BmpHeader& header);
// rejected: unsupported bit count.
DecodeStatus decodeBmpPixels(std::span<const std::uint8_t> file, const BmpHeader& header, BmpPicture& picture);
// Both steps, without any report.
DecodeStatus decodeBmp(std::span<const std::uint8_t> file, BmpPicture& picture);

}  // namespace vz
