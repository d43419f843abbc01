#include "assets/decoders/GifDecoder.hpp"

#include <algorithm>
#include <cstring>
#include <vector>

#include "assets/decoders/GifLzw.hpp"

namespace vz {

namespace {

constexpr std::size_t signatureSize = 6;
constexpr std::size_t screenDescriptorSize = 7;
constexpr std::size_t imageDescriptorSize = 9;
constexpr std::uint8_t hasColorTable = 0x80;
constexpr std::uint8_t interlaceFlag = 0x40;

bool signatureAccepted(std::span<const std::uint8_t> signature) {
    return std::memcmp(signature.data(), "GIF", 3) == 0;  // the version is not checked
}

int le16(std::span<const std::uint8_t> bytes, std::size_t at) { return bytes[at] | bytes[at + 1] << 8; }

// Sub-blocks: a length byte and that many bytes, until a length of 0. False when the
// file ends first.
bool skipSubBlocks(ByteReader& reader) {
    for (;;) {
        std::uint8_t length;
        if (!reader.u8(length)) return false;
        if (length == 0) return true;
        if (!reader.skip(length)) return false;
    }
}

// Joins the image's sub-blocks. `terminated` tells whether the zero-length block came
// before the end of the file.
std::vector<std::uint8_t> gatherSubBlocks(ByteReader& reader, bool& terminated) {
    std::vector<std::uint8_t> joined;
    joined.reserve(reader.remaining());
    terminated = false;
    for (;;) {
        std::uint8_t length;
        if (!reader.u8(length)) return joined;
        if (length == 0) break;
        std::span<const std::uint8_t> block;
        if (!reader.take(length, block)) {
            block = reader.rest();
            joined.insert(joined.end(), block.begin(), block.end());
            return joined;
        }
        joined.insert(joined.end(), block.begin(), block.end());
    }
    terminated = true;
    return joined;
}

// Reads block introducers up to the image separator, skipping extensions and any
// stray byte.
GifResult findImage(ByteReader& reader) {
    for (;;) {
        std::uint8_t introducer;
        if (!reader.u8(introducer)) return GifResult::truncated;
        if (introducer == 0x3B) return GifResult::trailerBeforeImage;
        if (introducer == 0x2C) return GifResult::ok;
        if (introducer == 0x21) {
            std::uint8_t label;
            if (!reader.u8(label) || !skipSubBlocks(reader)) return GifResult::truncated;
        }
    }
}

}  // namespace

GifSizeResult queryGifSize(std::span<const std::uint8_t> file, GifScreen& screen) {
    ByteReader reader(file);
    std::span<const std::uint8_t> signature, descriptor;
    if (!reader.take(signatureSize, signature)) return GifSizeResult::shortRead;
    if (!signatureAccepted(signature)) return GifSizeResult::badSignature;
    if (!reader.take(screenDescriptorSize, descriptor)) return GifSizeResult::shortDescriptor;
    screen.width = le16(descriptor, 0);
    screen.height = le16(descriptor, 2);
    return GifSizeResult::ok;
}

GifResult decodeGif(std::span<const std::uint8_t> file, std::uint8_t* destination, std::size_t destinationSize,
                    GifImage& image) {
    ByteReader reader(file);
    std::span<const std::uint8_t> signature, screen, descriptor;
    if (!reader.take(signatureSize, signature)) return GifResult::shortHeader;
    if (!signatureAccepted(signature)) return GifResult::badSignature;
    if (!reader.take(screenDescriptorSize, screen)) return GifResult::shortScreenDescriptor;
    // A table is always read as 256 entries: a smaller one takes bytes that follow it.
    if ((screen[4] & hasColorTable) && !readRgbPalette(reader, image.palette)) return GifResult::truncated;

    if (GifResult found = findImage(reader); found != GifResult::ok) return found;
    if (!reader.take(imageDescriptorSize, descriptor)) return GifResult::shortImageDescriptor;
    image.width = le16(descriptor, 4);
    image.height = le16(descriptor, 6);
    image.interlaced = (descriptor[8] & interlaceFlag) != 0;
    if ((descriptor[8] & hasColorTable) && !readRgbPalette(reader, image.palette)) return GifResult::truncated;

    std::uint8_t minimumCodeSize;
    if (!reader.u8(minimumCodeSize)) return GifResult::truncated;
    if (minimumCodeSize < 2 || minimumCodeSize >= 12) return GifResult::badCodeSize;

    bool terminated;
    std::vector<std::uint8_t> codes = gatherSubBlocks(reader, terminated);
    std::size_t pixelCount = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    std::size_t wanted = std::min(pixelCount, destinationSize);
    LzwOutcome outcome = decodeGifLzw(codes, minimumCodeSize, destination, wanted);
    if (outcome.stop == LzwStop::corrupt) return GifResult::corrupt;
    // Codes that stop at the file's end mean a cut file; codes that stop at the block
    // terminator end the picture like an end code.
    if (outcome.stop == LzwStop::dataEnd && !terminated) return GifResult::truncated;
    std::fill(destination + outcome.written, destination + wanted, std::uint8_t{0});
    return GifResult::ok;
}

const char* gifDamageReason(GifResult result) {
    switch (result) {
    case GifResult::truncated: return damageReason(DecodeStatus::truncated);
    case GifResult::corrupt: return damageReason(DecodeStatus::corrupt);
    default: return nullptr;
    }
}

}  // namespace vz
