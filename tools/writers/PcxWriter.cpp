#include "tools/writers/PcxWriter.hpp"

#include <stdexcept>

namespace vz::writers {

namespace {
constexpr int maxRun = 63;

void encodeLine(Bytes& out, const uint8_t* line, int width) {
    int x = 0;
    while (x < width) {
        const uint8_t value = line[x];
        int run = 1;
        while (x + run < width && run < maxRun && line[x + run] == value) ++run;
        // A lone byte below 0xC0 stands for itself; anything else needs a count byte.
        if (run > 1 || value >= 0xC0) put8(out, 0xC0 | unsigned(run));
        put8(out, value);
        x += run;
    }
}
}  // namespace

Bytes encodePcx(const IndexedPicture& picture) {
    const int w = picture.width, h = picture.height;
    if (w <= 0 || h <= 0 || w > 65535 || h > 65535 || picture.pixels.size() != size_t(w) * size_t(h))
        throw std::runtime_error("PCX pictures need sizes within 1..65535 and one index per pixel");
    Bytes out;
    out.reserve(128 + picture.pixels.size() + 769);
    put8(out, 10);  // manufacturer
    put8(out, 5);   // version with a 256-colour palette
    put8(out, 1);   // run-length encoding
    put8(out, 8);   // bits per pixel per plane
    put16le(out, 0);
    put16le(out, 0);
    put16le(out, unsigned(w - 1));
    put16le(out, unsigned(h - 1));
    put16le(out, 72);
    put16le(out, 72);
    out.resize(out.size() + 48, 0);  // 16-colour palette, unused
    put8(out, 0);                    // reserved
    put8(out, 1);                    // planes
    put16le(out, unsigned(w));       // bytes per line
    put16le(out, 1);                 // palette holds colours
    out.resize(128, 0);
    for (int y = 0; y < h; ++y) encodeLine(out, &picture.pixels[size_t(y) * size_t(w)], w);
    put8(out, 0x0C);
    for (const Rgb& c : picture.palette) {
        put8(out, c.r);
        put8(out, c.g);
        put8(out, c.b);
    }
    return out;
}

}  // namespace vz::writers
