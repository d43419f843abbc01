// A sprite that turns: its centre (x, y) and depth z follow a Vector3 track, its zoom and
// angle (radians, clockwise on the screen, whose rows run downward) follow float tracks, and its
// pixels go through a rendu track. The drawn scale is zoom / (1 + z): depth 0 is the
// screen plane, each unit of depth further away shrinks it, and a depth of -1 or less
// (at or behind the eye) draws nothing.
//
// The rotated picture's bounding box is placed and clipped like any sprite; every box
// pixel inside the run is then mapped back into the picture by the inverse rotation, in
// 16.16 steps along rows and columns. Box pixels that land outside the picture, and
// black picture pixels, leave the target as it is.
#include <cmath>
#include <cstdint>

#include "core/Fixed16.hpp"
#include "core/Layer.hpp"
#include "effects/sprites/SpriteDrawing.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// A picture turned by `angle` and scaled by `scale`: the inverse map from box pixels to
// picture positions, in 16.16.
struct RotatedSprite {
    Sprite box;                   // the bounding box on the target, scale 1
    std::int64_t startU, startV;  // picture position of box pixel (0, 0)
    std::int64_t uPerX, vPerX, uPerY, vPerY;
};

RotatedSprite rotate(int width, int height, float scale, float angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    const double boxW = std::ceil((std::fabs(width * c) + std::fabs(height * s)) * scale);
    const double boxH = std::ceil((std::fabs(width * s) + std::fabs(height * c)) * scale);
    RotatedSprite r{};
    // Far too large boxes stay empty: they would only ever show a few picture pixels.
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

}  // namespace

class SpriteRotKeytrack32bpp : public Component {
public:
    SpriteRotKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          picture_(in.symbol<Layer32bpp>()),
          position_(in.symbol<KeytrackVector3>()),
          zoom_(in.symbol<KeytrackFloat>()),
          rotation_(in.symbol<KeytrackFloat>()),
          rendu_(in.symbol<KeytrackInt>()) {}

    void run(float t) override {
        const Vector3 at = position_.sample(t);
        const float depth = 1.0f + at.z;
        if (!(depth > 0.0f)) return;
        const float scale = zoom_.sample(t) / depth;
        if (!(scale > 0.0f)) return;
        RotatedSprite r = rotate(picture_.width, picture_.height, scale, rotation_.sample(t));
        placeSprite(r.box, target_, at.x, at.y);
        const auto run = clipSprite(r.box, target_);
        if (!run) return;
        draw(r, *run, rendu_.sample(t));
    }

private:
    void draw(const RotatedSprite& r, const SpriteRun& run, int rendu) {
        const std::int64_t skipX = fixed16::indexOf(run.srcX), skipY = fixed16::indexOf(run.srcY);
        const std::uint32_t* pixels = picture_.pixels;
        const auto w = static_cast<std::uint64_t>(picture_.width), h = static_cast<std::uint64_t>(picture_.height);
        withRendu(rendu, [&](auto op) {
            std::int64_t rowU = r.startU + skipX * r.uPerX + skipY * r.uPerY;
            std::int64_t rowV = r.startV + skipX * r.vPerX + skipY * r.vPerY;
            for (int y = 0; y < run.height; ++y, rowU += r.uPerY, rowV += r.vPerY) {
                std::uint32_t* dst = target_.row(run.dstY + y) + run.dstX;
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

    Layer32bpp& target_;
    const Layer32bpp& picture_;
    KeytrackVector3& position_;
    KeytrackFloat& zoom_;
    KeytrackFloat& rotation_;
    KeytrackInt& rendu_;
};

VZ_COMPONENT("spriteRotKeytrack32bpp", SpriteRotKeytrack32bpp)

}  // namespace vz
