#include "assets/decoders/BmpDecoder.hpp"

#include <algorithm>

#include "assets/decoders/BmpRle.hpp"
#include "assets/decoders/PictureSize.hpp"

namespace vz {

namespace {

constexpr std::size_t headersSize = 54;

template <typename T>
bool field(ByteReader& reader, T& value) {
    if constexpr (sizeof(T) == 2) {
        std::uint16_t v;
        if (!reader.le16(v)) return false;
        value = static_cast<T>(v);
    } else {
        std::uint32_t v;
        if (!reader.le32(v)) return false;
        value = static_cast<T>(v);
    }
    return true;
}

// The colour table right after the headers: 2, 16 or 256 entries of blue, green, red and
// a spare byte, whatever the header's colour count says. Entries a short file does not
// hold stay black.
Palette256 readColorTable(std::span<const std::uint8_t> file, int bitCount) {
    Palette256 table{};
    std::size_t entries = std::size_t{1} << bitCount;
    std::size_t available = file.size() > headersSize ? (file.size() - headersSize) / 4 : 0;
    for (std::size_t i = 0; i < std::min(entries, available); ++i) {
        const std::uint8_t* e = file.data() + headersSize + 4 * i;
        table[i] = static_cast<std::uint32_t>(e[2]) << 16 | e[1] << 8 | e[0];
    }
    return table;
}

// Bytes from one stored row to the next, taken from the header's file size the way the
// files were always read (not from the 4-byte alignment rule).
std::int64_t rowSpan(const BmpHeader& header) {
    return (std::int64_t{header.fileSize} - header.dataOffset) / header.height;
}

std::uint32_t* pictureRow(BmpPicture& picture, int fromBottom) {
    return picture.pixels.data() + static_cast<std::size_t>(picture.height - 1 - fromBottom) * picture.width;
}

// Uncompressed 1-, 4- and 8-bit rows; indices are packed from the most significant bit.
DecodeStatus decodeIndexedRows(ByteReader& reader, const BmpHeader& header, const Palette256& table,
                               BmpPicture& picture) {
    const int bits = header.bitCount;
    const std::int64_t rowBytes = (std::int64_t{picture.width} * bits + 7) / 8;
    const std::int64_t padding = rowSpan(header) - rowBytes;
    const unsigned mask = (1u << bits) - 1;
    for (int y = 0; y < picture.height; ++y) {
        std::span<const std::uint8_t> row;
        if ((y > 0 && !reader.seekRelative(padding)) || !reader.take(static_cast<std::size_t>(rowBytes), row))
            return DecodeStatus::truncated;
        std::uint32_t* out = pictureRow(picture, y);
        for (int x = 0; x < picture.width; ++x) {
            std::int64_t bit = std::int64_t{x} * bits;
            out[x] = table[(row[static_cast<std::size_t>(bit >> 3)] >> (8 - bits - (bit & 7))) & mask];
        }
    }
    return DecodeStatus::ok;
}

// 24-bit rows. The padding skipped is a whole number of pixels: 3 x (span / 3 - width).
// Rows padded by 1 or 2 bytes therefore skip nothing and the following rows shift.
DecodeStatus decodeTrueColorRows(ByteReader& reader, const BmpHeader& header, BmpPicture& picture) {
    const std::int64_t skip = 3 * (rowSpan(header) / 3 - picture.width);
    const std::size_t rowBytes = static_cast<std::size_t>(picture.width) * 3;
    for (int y = 0; y < picture.height; ++y) {
        std::span<const std::uint8_t> row;
        if ((y > 0 && !reader.seekRelative(skip)) || !reader.take(rowBytes, row)) return DecodeStatus::truncated;
        std::uint32_t* out = pictureRow(picture, y);
        for (int x = 0; x < picture.width; ++x)
            out[x] = static_cast<std::uint32_t>(row[3 * x + 2]) << 16 | row[3 * x + 1] << 8 | row[3 * x];
    }
    return DecodeStatus::ok;
}

}  // namespace

DecodeStatus readBmpHeader(std::span<const std::uint8_t> file, BmpHeader& header) {
    ByteReader reader(file);
    std::span<const std::uint8_t> type;
    if (!reader.take(2, type)) return DecodeStatus::truncated;
    header.type[0] = static_cast<char>(type[0]);
    header.type[1] = static_cast<char>(type[1]);
    if (!(type[0] == 'B' && (type[1] == 'M' || type[1] == 'A'))) return DecodeStatus::rejected;
    bool complete =
        field(reader, header.fileSize) && field(reader, header.reserved) && field(reader, header.dataOffset) &&
        field(reader, header.headerSize) && field(reader, header.width) && field(reader, header.height) &&
        field(reader, header.planes) && field(reader, header.bitCount) && field(reader, header.compression) &&
        field(reader, header.imageSize) && field(reader, header.xResolution) && field(reader, header.yResolution) &&
        field(reader, header.colorsUsed) && field(reader, header.colorsImportant);
    return complete ? DecodeStatus::ok : DecodeStatus::truncated;
}

bool bmpBitCountSupported(const BmpHeader& header) {
    return header.bitCount == 1 || header.bitCount == 4 || header.bitCount == 8 || header.bitCount == 24;
}

DecodeStatus decodeBmpPixels(std::span<const std::uint8_t> file, const BmpHeader& header, BmpPicture& picture) {
    if (!bmpBitCountSupported(header)) return DecodeStatus::rejected;
    if (!pictureSizeAccepted(header.width, header.height)) return DecodeStatus::badSize;
    picture.width = header.width;
    picture.height = header.height;
    picture.pixels.assign(static_cast<std::size_t>(picture.width) * picture.height, 0);

    ByteReader reader(file);
    if (!reader.seek(header.dataOffset)) return DecodeStatus::truncated;
    if (header.bitCount == 24) return decodeTrueColorRows(reader, header, picture);
    Palette256 table = readColorTable(file, header.bitCount);
    // Compression is honoured for 8 and 4 bits only; any non-zero value means RLE.
    if (header.compression != 0 && header.bitCount != 1) return decodeBmpRle(reader, header.bitCount, table, picture);
    return decodeIndexedRows(reader, header, table, picture);
}

DecodeStatus decodeBmp(std::span<const std::uint8_t> file, BmpPicture& picture) {
    BmpHeader header;
    DecodeStatus status = readBmpHeader(file, header);
    return status == DecodeStatus::ok ? decodeBmpPixels(file, header, picture) : status;
}

}  // namespace vz
