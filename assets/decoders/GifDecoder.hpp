#pragma once
// GIF pictures: a size query over the logical screen, and a full read that decodes the
// first image into a caller's buffer. Colour tables are always read as 256 entries,
// whatever size the file states, and interlaced rows are kept in the order decoded.
#include <cstddef>
#include <cstdint>
#include <span>

#include "assets/decoders/IndexedPicture.hpp"

namespace vz {

// Result codes of the size query (0 = success). Opening the file is the caller's part.
enum class GifSizeResult {
    ok = 0,
    openFailed = -10,
    shortRead = -11,
    badSignature = -12,
    shortDescriptor = -13,
};

// Result codes of the full read (0 = success). The last two are our own checks on
// damaged files: data that stops inside the file's structure, and impossible codes.
enum class GifResult {
    ok = 0,
    openFailed = -3,
    shortHeader = -4,
    badSignature = -5,
    shortScreenDescriptor = -6,
    trailerBeforeImage = -7,
    shortImageDescriptor = -8,
    badCodeSize = -9,
    noMemory = -10,
    truncated = -14,
    corrupt = -16,
};

struct GifScreen {
    int width = 0;
    int height = 0;
};

struct GifImage {
    int width = 0;  // from the image descriptor
    int height = 0;
    bool interlaced = false;
    Palette256 palette{};
};

GifSizeResult queryGifSize(std::span<const std::uint8_t> file, GifScreen& screen);

// Decodes the image's width x height pixels row after row from destination[0], dropping
// those past destinationSize; pixels after an early end of the code stream are 0.
GifResult decodeGif(std::span<const std::uint8_t> file, std::uint8_t* destination, std::size_t destinationSize,
                    GifImage& image);

// The reason for our own checks' results, null for the historic codes.
const char* gifDamageReason(GifResult result);

}  // namespace vz
