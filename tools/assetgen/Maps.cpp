// Tunnel offsets tables, light maps, alpha maps and transition patterns.
#include <cmath>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Band.hpp"
#include "tools/assetgen/FixedRandom.hpp"
#include "tools/assetgen/Shapes.hpp"
#include "tools/assetgen/TunnelTable.hpp"
#include "tools/writers/GifWriter.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace vz::assetgen {

namespace {

// Alpha maps hold 0..32; the palette shows them as greys for viewing.
Palette alphaPalette() {
    Palette p;
    for (int i = 0; i < 256; ++i) p[size_t(i)] = {clampByte(i * 8), clampByte(i * 8), clampByte(i * 8)};
    return p;
}

// Light per screen pixel for the lit tunnel: dark far away in the centre, full near
// the edges, a little dimmer again in the corners.
IndexedPicture makeTunnelLight(const Band& band) {
    IndexedPicture map(band.width, band.height);
    map.palette = greyPalette();
    paint(map, [&band](int x, int y) {
        const double r = band.distance(x, y, 320, 200);
        return clampByte(230.0 * (1.0 - std::exp(-r / 85.0)) - 40.0 * smoothstep(300, 380, r));
    });
    return map;
}

// A spot of light off-centre fading into the dark.
IndexedPicture makeSpotLight(const Band& band) {
    IndexedPicture map(band.width, band.height);
    map.palette = greyPalette();
    paint(map, [&band](int x, int y) {
        return clampByte(255.0 * (1.0 - smoothstep(0, 300, band.distance(x, y, 240, 160))));
    });
    return map;
}

IndexedPicture makeVignetteAlpha(const Band& band) {
    IndexedPicture map(band.width, band.height);
    map.palette = alphaPalette();
    paint(map, [&band](int x, int y) {
        return uint8_t(std::lround(32.0 * (1.0 - smoothstep(120, 330, band.distance(x, y, 320, 200)))));
    });
    return map;
}

// Horizontal bands that ramp 0 -> 32 -> 0 every 40 authored rows.
IndexedPicture makeBandsAlpha(const Band& band) {
    IndexedPicture map(band.width, band.height);
    map.palette = alphaPalette();
    paint(map, [&band](int, int y) {
        const int phase = band.cellY(y) % 40;
        return uint8_t(phase < 20 ? phase * 32 / 19 : (39 - phase) * 32 / 19);
    });
    return map;
}

// Soft disc matching the 64 x 64 ball sprite.
IndexedPicture makeBallAlpha() {
    IndexedPicture map(64, 64);
    map.palette = alphaPalette();
    paint(map, [](int x, int y) {
        return uint8_t(std::lround(32.0 * (1.0 - smoothstep(20, 31, distance(x + 0.5, y + 0.5, 32, 32)))));
    });
    return map;
}

// Patterns: dark pixels are revealed first.
IndexedPicture makeRadialPattern(const Band& band) {
    IndexedPicture p(band.width, band.height);
    p.palette = greyPalette();
    const double maxR = distance(0, 0, 320, 200);
    paint(p, [&band, maxR](int x, int y) { return clampByte(255.0 * band.distance(x, y, 320, 200) / maxR); });
    return p;
}

// A wipe from the top-left corner with a saw-tooth edge.
IndexedPicture makeDiagonalPattern(const Band& band) {
    IndexedPicture p(band.width, band.height);
    p.palette = greyPalette();
    paint(p, [&band](int px, int py) {
        const int x = band.cellX(px), y = band.cellY(py);
        const int teeth = std::abs((x + y) % 32 - 16) * 2;  // 0..32
        return clampByte((x + y) * 223 / (Band::authoredWidth + Band::authoredHeight - 2) + teeth);
    });
    return p;
}

// Random grey per 4 x 4 authored block: a dissolve.
IndexedPicture makeNoisePattern(const Band& band) {
    IndexedPicture p(band.width, band.height);
    p.palette = greyPalette();
    FixedRandom random(0xD155);
    constexpr int columns = Band::authoredWidth / 4, rows = Band::authoredHeight / 4;
    std::vector<uint8_t> blocks(size_t(columns) * size_t(rows));
    for (uint8_t& b : blocks) b = uint8_t(random.below(256));
    paint(p, [&band, &blocks](int x, int y) {
        return blocks[size_t(band.cellY(y) / 4) * size_t(columns) + size_t(band.cellX(x) / 4)];
    });
    return p;
}

void addTunnelTable(AssetList& assets, const Band& band, const std::string& stem, const TunnelShape& shape) {
    const TunnelTable table = makeTunnelTable(band, shape);
    assets.push_back({stem + "_a.pcx", encodePcx(table.angle)});
    assets.push_back({stem + "_b.pcx", encodePcx(table.depth)});
}
}  // namespace

void addMaps(AssetList& assets, const Band& band) {
    addTunnelTable(assets, band, "tunnel", {320.0, 200.0, 1.0, 4096.0, 4.0});
    addTunnelTable(assets, band, "tunnel2", {420.0, 170.0, 2.0, 8192.0, 16.0});
    assets.push_back({"light_tunnel.pcx", encodePcx(makeTunnelLight(band))});
    assets.push_back({"light_spot.pcx", encodePcx(makeSpotLight(band))});
    assets.push_back({"alpha_vignette.pcx", encodePcx(makeVignetteAlpha(band))});
    assets.push_back({"alpha_bands.pcx", encodePcx(makeBandsAlpha(band))});
    assets.push_back({"alpha_ball.pcx", encodePcx(makeBallAlpha())});
    assets.push_back({"pattern_radial.pcx", encodePcx(makeRadialPattern(band))});
    assets.push_back({"pattern_diagonal.pcx", encodePcx(makeDiagonalPattern(band))});
    assets.push_back({"pattern_noise.gif", encodeGif(makeNoisePattern(band))});
}

}  // namespace vz::assetgen
