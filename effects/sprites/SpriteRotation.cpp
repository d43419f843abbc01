#include "effects/sprites/SpriteRotation.hpp"

#include <cmath>

#include "core/Fixed16.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

RotatedSprite rotateSprite(int width, int height, float scale, float angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    const double boxW = std::ceil((std::fabs(width * c) + std::fabs(height * s)) * scale);
    const double boxH = std::ceil((std::fabs(width * s) + std::fabs(height * c)) * scale);
    RotatedSprite r{};
    if (!(boxW < 65536.0 && boxH < 65536.0)) return r;
    r.box = Sprite{static_cast<int>(boxW), static_cast<int>(boxH)};
    const double fixed = fixed16::one / scale;
    r.uPerX = std::llround(c * fixed);
    r.vPerX = std::llround(-s * fixed);
    r.uPerY = std::llround(s * fixed);
    r.vPerY = std::llround(c * fixed);
    // Pixel centres: box pixel (bx, by) sits at (bx + 0.5 - boxW / 2, by + 0.5 - boxH / 2)
    // from the box centre, which is the picture's centre.
    const double dx = 0.5 - boxW / 2.0, dy = 0.5 - boxH / 2.0;
    r.startU = std::llround((c * dx + s * dy) * fixed + width * (fixed16::one / 2.0));
    r.startV = std::llround((-s * dx + c * dy) * fixed + height * (fixed16::one / 2.0));
    return r;
}

void drawRotatedSprite(Layer32bpp& target, const Layer32bpp& picture, const RotatedSprite& r, const SpriteRun& run,
                       int rendu) {
    const std::int64_t skipX = fixed16::indexOf(run.srcX), skipY = fixed16::indexOf(run.srcY);
    const std::uint32_t* pixels = picture.pixels;
    const auto w = static_cast<std::uint64_t>(picture.width), h = static_cast<std::uint64_t>(picture.height);
    withRendu(rendu, [&](auto op) {
        std::int64_t rowU = r.startU + skipX * r.uPerX + skipY * r.uPerY;
        std::int64_t rowV = r.startV + skipX * r.vPerX + skipY * r.vPerY;
        for (int y = 0; y < run.height; ++y, rowU += r.uPerY, rowV += r.vPerY) {
            std::uint32_t* dst = target.row(run.dstY + y) + run.dstX;
            std::int64_t u = rowU, v = rowV;
            for (int x = 0; x < run.width; ++x, u += r.uPerX, v += r.vPerX) {
                // Negative positions become huge unsigned values and fail the test too.
                const auto pu = static_cast<std::uint64_t>(u >> fixed16::shift);
                const auto pv = static_cast<std::uint64_t>(v >> fixed16::shift);
                if (pu >= w || pv >= h) continue;
                if (const std::uint32_t s = pixels[pv * w + pu]) dst[x] = blend::op<op()>(s, dst[x]);
            }
        }
    });
}

}  // namespace vz
