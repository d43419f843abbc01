#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

void fillGradient(Palette& palette, int first, int last, const std::vector<Rgb>& stops) {
    const int span = last - first;
    for (int i = first; i <= last; ++i) {
        if (stops.size() == 1 || span == 0) {
            palette[size_t(i)] = stops.front();
            continue;
        }
        // Integer position in 1/65536 steps so that every run gives the same entries.
        const int64_t pos = int64_t(i - first) * int64_t(stops.size() - 1) * 65536 / span;
        const size_t seg = std::min(size_t(pos >> 16), stops.size() - 2);
        const int frac = int(pos - int64_t(seg) * 65536);
        const Rgb a = stops[seg], b = stops[seg + 1];
        auto lerp = [frac](int x, int y) { return uint8_t(x + (y - x) * frac / 65536); };
        palette[size_t(i)] = {lerp(a.r, b.r), lerp(a.g, b.g), lerp(a.b, b.b)};
    }
}

Palette greyPalette() {
    Palette p;
    for (int i = 0; i < 256; ++i) p[size_t(i)] = {uint8_t(i), uint8_t(i), uint8_t(i)};
    return p;
}

RgbPicture expand(const IndexedPicture& picture) {
    RgbPicture out(picture.width, picture.height);
    for (size_t i = 0; i < picture.pixels.size(); ++i) out.pixels[i] = picture.palette[picture.pixels[i]];
    return out;
}

}  // namespace vz::assetgen
