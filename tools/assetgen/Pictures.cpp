// Font, tunnel textures, full-screen pictures, sprites and the film strip.
#include <cmath>
#include <cstdio>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Band.hpp"
#include "tools/assetgen/FixedRandom.hpp"
#include "tools/assetgen/Font.hpp"
#include "tools/assetgen/NamedPalettes.hpp"
#include "tools/assetgen/Shapes.hpp"
#include "tools/writers/BmpWriter.hpp"
#include "tools/writers/GifWriter.hpp"
#include "tools/writers/JpegWriter.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace vz::assetgen {

namespace {

// Tiles 32 columns wide and 16 rows high, so the pattern wraps on both axes.
RgbPicture makeTileTexture() {
    RgbPicture tex(256, 256);
    FixedRandom random(0x711E5);
    std::vector<Rgb> tileColours(8 * 16);
    for (Rgb& c : tileColours) {
        const int shade = 90 + random.below(90);
        c = {uint8_t(shade + random.below(50)), uint8_t(shade / 2 + random.below(40)), uint8_t(shade / 3)};
    }
    for (int y = 0; y < 256; ++y) {
        const int row = y / 16;
        for (int x = 0; x < 256; ++x) {
            const int shifted = (x + (row % 2) * 16) & 255;  // staggered like bricks
            const int tx = shifted % 32, ty = y % 16;
            const Rgb base = tileColours[size_t(row * 8 + shifted / 32)];
            const bool mortar = tx < 2 || ty < 2;
            const double grain = 0.85 + 0.15 * random.signedUnit();
            const double glow = 0.5 + 0.5 * wave256(x, 4) * wave256(y, 2);
            if (mortar) {
                tex.at(x, y) = {uint8_t(20 + 60 * glow), uint8_t(40 + 150 * glow), uint8_t(60 + 190 * glow)};
            } else {
                const double edge = (tx == 2 || ty == 2) ? 1.25 : (tx == 31 || ty == 15) ? 0.7 : 1.0;
                tex.at(x, y) = {clampByte(base.r * grain * edge), clampByte(base.g * grain * edge),
                                clampByte(base.b * grain * edge)};
            }
        }
    }
    return tex;
}

// A plasma of waves that tile over 256 x 256, through a cyclic blue-violet-gold palette.
IndexedPicture makePlasmaTexture() {
    IndexedPicture tex(256, 256);
    tex.palette = tunnelPlasmaPalette();
    paint(tex, [](int x, int y) {
        const double v = wave256(x, 2) + wave256(y, 3) + wave256(x + y, 1) + wave256(x * 2 - y, 1);
        return uint8_t(int(std::floor((v + 4.0) * 32.0 * 2.0)) & 255);
    });
    return tex;
}

// A grid of glowing lines: simple, strongly readable motion in the second tunnel.
IndexedPicture makeGridTexture() {
    IndexedPicture tex(256, 256);
    fillGradient(tex.palette, 0, 63, {{0, 10, 20}, {0, 40, 60}});
    fillGradient(tex.palette, 64, 255, {{0, 60, 80}, {40, 255, 160}, {255, 255, 255}});
    paint(tex, [](int x, int y) {
        const int dx = std::abs((x % 32) - 16), dy = std::abs((y % 32) - 16);
        const int line = std::max(dx, dy);  // 16 on the grid line, 0 in the cell centre
        const int checker = ((x / 32) + (y / 32)) % 2;
        return uint8_t(line >= 14 ? 64 + (line - 13) * 60 : checker * 40 + line);
    });
    return tex;
}

// Sunset over a grid floor, for the JPEG background.
RgbPicture makeSunsetPicture(const Band& band) {
    RgbPicture pic(band.width, band.height);
    const int horizon = 260;
    for (int py = 0; py < band.height; ++py)
        for (int px = 0; px < band.width; ++px) {
            const double x = band.atX(px), y = band.atY(py);
            const int row = band.cellY(py);
            Rgb c;
            if (y < horizon) {
                const double t = y / horizon;
                c = mix(mix(Rgb{20, 10, 60}, Rgb{200, 40, 120}, t), Rgb{255, 170, 60}, t * t);
                const double r = band.distance(px, py, 320, 200);
                const bool stripe = row > 170 && (row / 6) % 2 == 0 && (row - 170) / 6 > (260 - row) / 20;
                if (r < 110 && !stripe) c = mix(Rgb{255, 240, 120}, Rgb{255, 90, 80}, (y - 90) / 170.0);
                const double ridge = 215 + 25 * std::sin(x * 0.013) + 12 * std::sin(x * 0.041 + 1.0);
                if (y > ridge) c = mix(Rgb{40, 10, 60}, Rgb{10, 5, 30}, (y - ridge) / 40.0);
            } else {
                const double depth = 1.0 / (y - horizon + 1);
                const double u = (x - 320) * depth, v = 40.0 * depth;
                const bool line = std::fmod(std::fabs(u) + 100.0, 2.0) < 0.08 * (y - horizon) * depth + 0.04 ||
                                  std::fmod(v, 1.0) < 0.15;
                c = line ? mix(Rgb{255, 60, 200}, Rgb{120, 20, 160}, depth * 8) : Rgb{10, 0, 25};
            }
            pic.at(px, py) = c;
        }
    return pic;
}

// Two interfering ring systems in colour, for the BMP picture.
RgbPicture makeInterferencePicture(const Band& band) {
    RgbPicture pic(band.width, band.height);
    paint(pic, [&band](int x, int y) {
        const double a = std::sin(band.distance(x, y, 200, 150) * 0.11);
        const double b = std::sin(band.distance(x, y, 460, 260) * 0.09);
        const double v = (a + b) * 0.25 + 0.5;
        const double fade = 1.0 - 0.6 * smoothstep(200, 420, band.distance(x, y, 320, 200));
        return Rgb{clampByte(255 * v * fade), clampByte((80 + 175 * (1 - v)) * fade * 0.8),
                   clampByte((120 + 135 * a * b) * fade)};
    });
    return pic;
}

// A lit sphere on black; indices 1-255 run from its shadow to its highlight.
IndexedPicture makeBallSprite() {
    constexpr int size = 64;
    IndexedPicture ball(size, size);
    fillGradient(ball.palette, 1, 255, {{10, 20, 50}, {30, 90, 200}, {150, 200, 255}, {255, 255, 255}});
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const double nx = (x + 0.5 - size / 2.0) / 30.0, ny = (y + 0.5 - size / 2.0) / 30.0;
            const double rr = nx * nx + ny * ny;
            if (rr >= 1.0) continue;
            const double nz = std::sqrt(1.0 - rr);
            const double light = std::fmax(0.0, -0.4 * nx - 0.5 * ny + 0.77 * nz);
            ball.at(x, y) = uint8_t(1 + std::lround(254 * std::pow(light, 1.6)));
        }
    return ball;
}

// A four-pointed star with a soft glow, on black.
IndexedPicture makeStarSprite() {
    constexpr int size = 64;
    IndexedPicture star(size, size);
    fillGradient(star.palette, 1, 255, {{40, 10, 0}, {200, 80, 10}, {255, 220, 80}, {255, 255, 230}});
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const double dx = std::fabs(x + 0.5 - size / 2.0), dy = std::fabs(y + 0.5 - size / 2.0);
            const double arms = std::fmax(0.0, 1.0 - std::sqrt(dx * dy) / 6.0) * (1.0 - std::fmax(dx, dy) / 32.0);
            const double glow = std::fmax(0.0, 1.0 - std::hypot(dx, dy) / 22.0);
            const double v = std::fmin(1.0, arms + glow * glow * 0.8);
            if (v > 0.02) star.at(x, y) = uint8_t(1 + std::lround(254 * v));
        }
    return star;
}

// 16 frames of 160 x 100 stacked vertically: a turning wheel with the frame number.
IndexedPicture makeFilmStrip() {
    constexpr int frameW = 160, frameH = 100, frames = 16;
    IndexedPicture film(frameW, frameH * frames);
    fillGradient(film.palette, 0, 127, {{0, 0, 0}, {20, 30, 70}});
    fillGradient(film.palette, 128, 254, {{80, 40, 10}, {255, 180, 40}});
    film.palette[255] = {255, 255, 255};
    for (int f = 0; f < frames; ++f) {
        const double turn = f * 2.0 * pi / frames / 6.0;  // six spokes: 1/6 turn per loop
        for (int y = 0; y < frameH; ++y)
            for (int x = 0; x < frameW; ++x) {
                const double dx = x - 110.0, dy = y - 50.0, r = std::hypot(dx, dy);
                const double angle = std::atan2(dy, dx) - turn;
                const double spoke = std::fabs(std::sin(angle * 3.0));
                uint8_t v = uint8_t(40 + (y * 60) / frameH);  // backdrop
                if ((r < 42 && r > 36) || (r < 36 && spoke < 0.12) || r < 6)
                    v = uint8_t(190 + std::lround(64.0 * (1.0 - r / 42.0)));
                film.at(x, y + f * frameH) = v;
            }
        char number[8];
        std::snprintf(number, sizeof number, "%02d", f + 1);
        drawText(film, 12, f * frameH + 32, number, 3, 255);
    }
    return film;
}
}  // namespace

void addPictures(AssetList& assets, const Band& band) {
    assets.push_back({"police.pcx", encodePcx(makeFontStrip(24))});
    assets.push_back({"tunnel_tiles.bmp", encodeBmp24(makeTileTexture())});
    assets.push_back({"tunnel_plasma.gif", encodeGif(makePlasmaTexture())});
    assets.push_back({"tunnel_grid.pcx", encodePcx(makeGridTexture())});
    assets.push_back({"back.jpg", encodeJpeg(makeSunsetPicture(band), 90)});
    assets.push_back({"rings.bmp", encodeBmp24(makeInterferencePicture(band))});
    assets.push_back({"ball.pcx", encodePcx(makeBallSprite())});
    assets.push_back({"star.gif", encodeGif(makeStarSprite())});
    assets.push_back({"film.pcx", encodePcx(makeFilmStrip())});
}

}  // namespace vz::assetgen
