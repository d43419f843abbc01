#include "tools/assetgen/BmpWriter.hpp"

#include <stdexcept>

namespace vz::assetgen {

Bytes encodeBmp24(const RgbPicture& picture) {
    const int w = picture.width, h = picture.height;
    if (w <= 0 || h <= 0 || w > 32767 || h > 32767) throw std::runtime_error("BMP pictures need sizes within 1..32767");
    const uint32_t rowBytes = (uint32_t(w) * 3 + 3) & ~3u;
    const uint32_t dataOffset = 14 + 40;
    const uint32_t imageBytes = rowBytes * uint32_t(h);
    Bytes out;
    out.reserve(dataOffset + imageBytes);
    putText(out, "BM", 2);
    put32le(out, dataOffset + imageBytes);
    put32le(out, 0);
    put32le(out, dataOffset);
    put32le(out, 40);
    put32le(out, uint32_t(w));
    put32le(out, uint32_t(h));  // positive: bottom row first
    put16le(out, 1);            // planes
    put16le(out, 24);
    put32le(out, 0);  // no compression
    put32le(out, imageBytes);
    put32le(out, 2835);  // 72 dpi
    put32le(out, 2835);
    put32le(out, 0);
    put32le(out, 0);
    for (int y = h - 1; y >= 0; --y) {
        for (int x = 0; x < w; ++x) {
            const Rgb& c = picture.at(x, y);
            put8(out, c.b);
            put8(out, c.g);
            put8(out, c.r);
        }
        out.resize(out.size() + (rowBytes - uint32_t(w) * 3), 0);
    }
    return out;
}

}  // namespace vz::assetgen
