// Pictures for palette work, palette files and the palette pair for look-up tables.
#include <algorithm>
#include <cmath>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Band.hpp"
#include "tools/assetgen/NamedPalettes.hpp"
#include "tools/assetgen/Shapes.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace vz::assetgen {

namespace {

// A 256 x 256 picture of the palette as 16 x 16 squares, the index growing left to
// right then top to bottom.
IndexedPicture paletteSwatch(const Palette& palette) {
    IndexedPicture p(256, 256);
    p.palette = palette;
    paint(p, [](int x, int y) { return uint8_t((y / 16) * 16 + x / 16); });
    return p;
}

// Index = distance from the centre plus a twist with the angle: rotating the
// palette makes the spiral flow outwards.
IndexedPicture makeSpiral(const Band& band) {
    IndexedPicture p(band.width, band.height);
    p.palette = rainbowPalette();
    const double centreX = 320.0 * band.scaleX(), centreY = 200.0 * band.scaleY();
    paint(p, [&band, centreX, centreY](int x, int y) {
        const double a = std::atan2(y - centreY, x - centreX) * 128.0 / pi;
        return uint8_t(int(std::floor(band.distance(x, y, 320, 200) * 1.5 + a * 2.0)) & 255);
    });
    return p;
}

// Smooth full-screen plasma using the whole index range; shown through the fire
// palette, and through a blend of fire and ice with blendPalette.
IndexedPicture makePlasma(const Band& band) {
    IndexedPicture p(band.width, band.height);
    p.palette = firePalette();
    paint(p, [&band](int px, int py) {
        const double x = band.atX(px), y = band.atY(py);
        const double v = std::sin(x * 0.021) + std::sin(y * 0.027 + 1.3) + std::sin((x + y) * 0.014) +
                         std::sin(band.distance(px, py, 420, 150) * 0.03);
        return clampByte((v + 4.0) * 31.9);
    });
    return p;
}

// For shadingLutPalette, whose entries keep only the low byte of channel products:
// dark channels stay within 0..15 and light channels within 0..17, so every product
// fits in a byte and the table is a true shading of the plasma tunnel's colours
// (row = light level, column = colour index).
Palette lutDarkPalette() {
    Palette p;
    for (int a = 0; a < 256; ++a)
        p[size_t(a)] = {uint8_t(a >> 4), uint8_t(a >> 4), uint8_t(std::min(15, (a >> 4) + 1))};
    return p;
}

Palette lutLightPalette() {
    Palette p = tunnelPlasmaPalette();
    for (Rgb& c : p) c = {uint8_t(c.r * 17 / 255), uint8_t(c.g * 17 / 255), uint8_t(c.b * 17 / 255)};
    return p;
}
}  // namespace

void addPalettes(AssetList& assets, const Band& band) {
    assets.push_back({"spiral.pcx", encodePcx(makeSpiral(band))});
    assets.push_back({"plasma.pcx", encodePcx(makePlasma(band))});
    assets.push_back({"pal_fire.pcx", encodePcx(paletteSwatch(firePalette()))});
    assets.push_back({"pal_ice.pcx", encodePcx(paletteSwatch(icePalette()))});
    assets.push_back({"pal_rainbow.pcx", encodePcx(paletteSwatch(rainbowPalette()))});
    assets.push_back({"lut_dark.pcx", encodePcx(paletteSwatch(lutDarkPalette()))});
    assets.push_back({"lut_light.pcx", encodePcx(paletteSwatch(lutLightPalette()))});
}

}  // namespace vz::assetgen
