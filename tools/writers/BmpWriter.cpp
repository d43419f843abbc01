#include "tools/writers/BmpWriter.hpp"

#include <stdexcept>

namespace vz::writers {

namespace {
uint32_t rowBytes(int width, int bitCount) { return (uint32_t(width) * uint32_t(bitCount) + 31) / 32 * 4; }

// File header, info header and the first `colours` palette entries as the colour table.
Bytes headers(int w, int h, int bitCount, uint32_t compression, const Palette& palette, int colours,
              uint32_t dataBytes) {
    if (w <= 0 || h <= 0 || w > 32767 || h > 32767) throw std::runtime_error("BMP pictures need sizes within 1..32767");
    const uint32_t dataOffset = 14 + 40 + 4 * uint32_t(colours);
    Bytes out;
    out.reserve(dataOffset + dataBytes);
    putText(out, "BM", 2);
    put32le(out, dataOffset + dataBytes);
    put32le(out, 0);
    put32le(out, dataOffset);
    put32le(out, 40);
    put32le(out, uint32_t(w));
    put32le(out, uint32_t(h));  // positive: bottom row first
    put16le(out, 1);            // planes
    put16le(out, unsigned(bitCount));
    put32le(out, compression);
    put32le(out, dataBytes);
    put32le(out, 2835);  // 72 dpi
    put32le(out, 2835);
    put32le(out, uint32_t(colours));
    put32le(out, 0);
    for (int i = 0; i < colours; ++i) {
        const Rgb& c = palette[size_t(i)];
        put8(out, c.b);
        put8(out, c.g);
        put8(out, c.r);
        put8(out, 0);
    }
    return out;
}

int tableSize(int bitCount, bool rle) {
    if (bitCount == 8 || bitCount == 4 || (bitCount == 1 && !rle)) return 1 << bitCount;
    throw std::runtime_error(
        "BMP pictures with a colour table have 1, 4 or 8 bits per pixel, 4 or 8 when run-length coded");
}
}  // namespace

Bytes encodeBmp24(const RgbPicture& picture) {
    const int w = picture.width, h = picture.height;
    const uint32_t row = rowBytes(w, 24);
    Bytes out = headers(w, h, 24, 0, Palette{}, 0, row * uint32_t(h));
    for (int y = h - 1; y >= 0; --y) {
        for (int x = 0; x < w; ++x) {
            const Rgb& c = picture.at(x, y);
            put8(out, c.b);
            put8(out, c.g);
            put8(out, c.r);
        }
        out.resize(out.size() + (row - uint32_t(w) * 3), 0);
    }
    return out;
}

Bytes encodeBmpIndexed(const IndexedPicture& picture, int bitCount) {
    const int w = picture.width, h = picture.height;
    const uint32_t row = rowBytes(w, bitCount);
    Bytes out = headers(w, h, bitCount, 0, picture.palette, tableSize(bitCount, false), row * uint32_t(h));
    if (picture.pixels.size() != size_t(w) * size_t(h)) throw std::runtime_error("one index per pixel");
    for (int y = h - 1; y >= 0; --y) {
        const size_t start = out.size();
        out.resize(start + row, 0);
        for (int x = 0; x < w; ++x) {
            const int bit = x * bitCount;
            out[start + size_t(bit / 8)] |= uint8_t(picture.at(x, y) << (8 - bitCount - bit % 8));
        }
    }
    return out;
}

Bytes encodeBmpRle(const IndexedPicture& picture, int bitCount, const Bytes& runs) {
    Bytes out = headers(picture.width, picture.height, bitCount, bitCount == 8 ? 1 : 2, picture.palette,
                        tableSize(bitCount, true), uint32_t(runs.size()));
    out.insert(out.end(), runs.begin(), runs.end());
    return out;
}

}  // namespace vz::writers
