#include "effects/warpers/Ripples.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/SafeNumbers.hpp"
#include "effects/procedural/PolarTable.hpp"
#include "effects/warpers/WarpSampling.hpp"

namespace vz {

namespace {

std::uint32_t signedByte(double unit) {
    return static_cast<std::uint8_t>(static_cast<std::int8_t>(std::lround(unit * 127)));
}

}  // namespace

Ripples::Ripples(int w, int h) : w_(w), h_(h) {
    const double wavelength = std::max(2.0, h / 8.0);
    entries_ = polarTable<std::uint32_t>(w, h, w / 2.0, h / 2.0, [&](double r, double turns) {
        const double a = 2.0 * std::numbers::pi * turns;
        return static_cast<std::uint32_t>(sine::phaseOfTurns(r / wavelength)) | signedByte(std::cos(a)) << 16 |
               signedByte(std::sin(a)) << 24;
    });
}

void Ripples::frame(float amplitude, float t) {
    // Beyond the picture's size every pixel is clamped to an edge anyway.
    const int limit = std::max(w_, h_);
    const int fixedAmplitude = clampToInt(static_cast<double>(amplitude) * 256.0, -256 * limit, 256 * limit);
    const int start = sine::phaseOfTurns(-static_cast<double>(t) * pace);
    // The slope of the wave is amplitude x 2 pi / L x cos(...); one unit of slope moves the
    // light by 64, so the picture still shows through the light.
    const double wavelength = std::max(2.0, h_ / 8.0);
    const double slope =
        std::clamp(static_cast<double>(fixedAmplitude) / 256.0 * 2.0 * std::numbers::pi / wavelength, -64.0, 64.0);
    const int lightAmplitude = static_cast<int>(std::lround(64.0 * slope));
    for (int p = 0; p < sine::steps; ++p) {
        shift_[p] = static_cast<int>((static_cast<std::int64_t>(fixedAmplitude) * sine::at(p + start)) >> sine::shift);
        light_[p] = static_cast<std::uint8_t>(
            std::clamp(128 - ((lightAmplitude * sine::cosAt(p + start)) >> sine::shift), 0, 255));
    }
}

namespace {

// The picture index that target pixel (x, y) with entry e shows: the direction (a signed
// byte, 127 a unit) times the shift (1/256 pixel), >> 15, gives pixels.
inline std::size_t sourceOf(std::uint32_t e, int x, int y, const int* shift, int w, int h, std::size_t stride) {
    const int s = shift[e & sine::mask];
    const int sx = clampToEdge(x + ((static_cast<std::int8_t>(e >> 16) * s) >> 15), w);
    const int sy = clampToEdge(y + ((static_cast<std::int8_t>(e >> 24) * s) >> 15), h);
    return static_cast<std::size_t>(sy) * stride + static_cast<std::size_t>(sx);
}

}  // namespace

void Ripples::warp(std::uint32_t* dst, const std::uint32_t* src, int stride) const {
    const std::uint32_t* e = entries_.data();
    const int* shift = shift_.data();
    const int w = w_, h = h_;
    const auto pitch = static_cast<std::size_t>(stride);
    for (int y = 0; y < h; ++y, e += w, dst += w)
        for (int x = 0; x < w; ++x) dst[x] = src[sourceOf(e[x], x, y, shift, w, h, pitch)];
}

void Ripples::warpLit(std::uint32_t* dst, const std::uint8_t* src, int stride, const std::uint32_t* lut) const {
    const std::uint32_t* e = entries_.data();
    const int* shift = shift_.data();
    const std::uint8_t* light = light_.data();
    const int w = w_, h = h_;
    const auto pitch = static_cast<std::size_t>(stride);
    for (int y = 0; y < h; ++y, e += w, dst += w)
        for (int x = 0; x < w; ++x)
            dst[x] = lut[static_cast<std::size_t>(light[e[x] & sine::mask]) << 8 |
                         src[sourceOf(e[x], x, y, shift, w, h, pitch)]];
}

}  // namespace vz
