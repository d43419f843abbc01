#include "assets/decoders/PcxDecoder.hpp"

#include <cstring>

#include "assets/decoders/PictureSize.hpp"

namespace vz {

namespace {

constexpr std::size_t headerSize = 128;
// The longest run is 63 bytes, so a run starting on the last pixel ends 62 bytes past
// the picture. Runs are not cut at the end: they land in this margin.
constexpr std::size_t runMargin = 63;
// The most pixels one byte of data can stand for (a two-byte run of 63).
constexpr std::size_t maxPixelsPerByte = 32;

bool headerAccepted(std::span<const std::uint8_t> header) {
    return header[0] == 10 && header[1] == 5 && header[2] != 0 && header[3] == 8;
}

int le16Signed(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::int16_t>(bytes[at] | bytes[at + 1] << 8);
}

// Lines are taken as exactly `width` bytes: the bytes-per-line field is not consulted,
// so a file whose lines are padded decodes sheared, as it always did.
bool decodeRuns(ByteReader& reader, std::uint8_t* out, std::uint8_t* outEnd) {
    std::span<const std::uint8_t> data = reader.rest();
    const std::uint8_t* in = data.data();
    const std::uint8_t* inEnd = in + data.size();
    while (out < outEnd) {
        if (in == inEnd) return false;
        std::uint8_t b = *in++;
        if ((b & 0xC0) != 0xC0) {
            *out++ = b;
            continue;
        }
        if (in == inEnd) return false;
        std::uint8_t value = *in++;
        std::size_t count = b & 63;
        std::memset(out, value, count);
        out += count;
    }
    reader.skip(static_cast<std::size_t>(in - data.data()));
    return true;
}

}  // namespace

DecodeStatus decodePcx(std::span<const std::uint8_t> file, IndexedPicture& picture) {
    ByteReader reader(file);
    std::span<const std::uint8_t> header;
    if (!reader.take(headerSize, header)) return DecodeStatus::rejected;
    if (!headerAccepted(header)) return DecodeStatus::rejected;
    std::int64_t width = std::int64_t{le16Signed(header, 8)} - le16Signed(header, 4) + 1;
    std::int64_t height = std::int64_t{le16Signed(header, 10)} - le16Signed(header, 6) + 1;
    if (!pictureSizeAccepted(width, height)) return DecodeStatus::badSize;

    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    std::size_t count = static_cast<std::size_t>(width * height);
    // A file too short to hold the picture is refused before its buffer is made.
    if (count > reader.remaining() * maxPixelsPerByte) return DecodeStatus::truncated;
    picture.indices.assign(count + runMargin, 0);
    if (!decodeRuns(reader, picture.indices.data(), picture.indices.data() + count)) return DecodeStatus::truncated;
    picture.indices.resize(count);

    // One marker byte (traditionally 12, not checked), then the palette.
    if (!reader.skip(1) || !readRgbPalette(reader, picture.palette)) return DecodeStatus::truncated;
    return DecodeStatus::ok;
}

}  // namespace vz
