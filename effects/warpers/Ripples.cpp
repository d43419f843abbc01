#include "effects/warpers/Ripples.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/SafeNumbers.hpp"
#include "effects/procedural/PolarTable.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/warpers/WarpSampling.hpp"

namespace vz {

namespace {

double wavelengthOf(int h) { return std::max(2.0, h / 8.0); }

}  // namespace

Ripples::Ripples(int w, int h, int stride) : w_(w), h_(h), stride_(stride), row_(static_cast<std::size_t>(w)) {
    const double wavelength = wavelengthOf(h);
    entries_ = polarTable<std::uint16_t>(w, h, w / 2.0, h / 2.0, [&](double r, double turns) {
        const auto place = static_cast<unsigned>(sine::phaseOfTurns(r / wavelength) * places / sine::steps);
        const auto direction = static_cast<unsigned>(std::lround(turns * directions)) % directions;
        return static_cast<std::uint16_t>(place * directions + direction);
    });
}

void Ripples::frame(float amplitude, float t) {
    const double pixels = std::clamp(std::isnan(amplitude) ? 0.0 : static_cast<double>(amplitude),
                                     -double(maxAmplitude), double(maxAmplitude));
    const int start = sine::phaseOfTurns(-static_cast<double>(t) * pace);
    constexpr int placeStep = sine::steps / places, directionStep = sine::steps / directions;
    // The slope of the wave is amplitude x 2 pi / L x cos(...); one unit of slope moves the
    // light by 64, so the picture still shows through the light.
    const double slope = pixels * 2.0 * std::numbers::pi / wavelengthOf(h_);
    const int lightAmplitude = static_cast<int>(std::lround(std::clamp(64.0 * slope, -4096.0, 4096.0)));
    const auto fixedAmplitude = static_cast<std::int64_t>(std::lround(pixels * 256.0));  // 1/256 pixel
    margin_ = 0;
    for (int p = 0; p < places; ++p) {
        const int phase = p * placeStep + start;
        // The move along the direction, in 1/256 pixel.
        const std::int64_t along = (fixedAmplitude * sine::at(phase)) >> sine::shift;
        for (int d = 0; d < directions; ++d) {
            // Rounded to whole pixels: along (1/256) x unit (1/16384).
            const auto dx = static_cast<int>((along * sine::cosAt(d * directionStep) + (1 << 21)) >> 22);
            const auto dy = static_cast<int>((along * sine::at(d * directionStep) + (1 << 21)) >> 22);
            offset_[p * directions + d] = dy * stride_ + dx;
            move_[p * directions + d] =
                static_cast<std::uint16_t>(static_cast<std::uint8_t>(dx) | static_cast<std::uint8_t>(dy) << 8);
            margin_ = std::max({margin_, std::abs(dx), std::abs(dy)});
        }
        light_[p] =
            static_cast<std::uint8_t>(std::clamp(128 - ((lightAmplitude * sine::cosAt(phase)) >> sine::shift), 0, 255));
    }
}

// Fills each row of dst with pixel(picture index, entry): away from the rim the index is
// the pixel's own plus the frame's offset; on the rim the move is clamped.
template <class Pixel>
void Ripples::walk(std::uint32_t* dst, Pixel pixel) {
    const std::uint16_t* e = entries_.data();
    const int w = w_, h = h_, m = margin_;
    const auto stride = static_cast<std::size_t>(stride_);
    const std::uint16_t* move = move_.data();
    const std::int32_t* offset = offset_.data();
    std::uint32_t* row = row_.data();
    const auto clamped = [=](int x, int y, std::uint16_t entry) {
        const int sx = clampToEdge(x + static_cast<std::int8_t>(move[entry] & 0xFF), w);
        const int sy = clampToEdge(y + static_cast<std::int8_t>(move[entry] >> 8), h);
        return static_cast<std::size_t>(sy) * stride + static_cast<std::size_t>(sx);
    };
    const int innerFrom = std::min(m, w), innerTo = std::max(innerFrom, w - m);
    for (int y = 0; y < h; ++y, e += w) {
        const bool rim = y < m || y >= h - m;
        const int from = rim ? w : innerFrom, to = rim ? w : innerTo;
        for (int x = 0; x < from; ++x) row[x] = pixel(clamped(x, y, e[x]), e[x]);
        const std::int64_t base = static_cast<std::int64_t>(y) * stride_;
        fillInFours(row, from, to,
                    [&](int x) { return pixel(static_cast<std::size_t>(base + x + offset[e[x]]), e[x]); });
        for (int x = to; x < w; ++x) row[x] = pixel(clamped(x, y, e[x]), e[x]);
        copyWarpedRow(dst + static_cast<std::size_t>(y) * static_cast<std::size_t>(w), row, w);
    }
}

void Ripples::warp(std::uint32_t* dst, const std::uint32_t* src) {
    walk(dst, [=](std::size_t from, std::uint16_t) { return src[from]; });
}

void Ripples::warpLit(std::uint32_t* dst, const std::uint8_t* src, const std::uint32_t* lut) {
    const std::uint8_t* light = light_.data();
    walk(dst, [=](std::size_t from, std::uint16_t e) {
        return lut[static_cast<std::size_t>(light[e / directions]) << 8 | src[from]];
    });
}

}  // namespace vz
