// The tiled-texture effects: a rotozoom turning and zooming a texture round the target's
// centre, and a floor in perspective moving toward the viewer. Both walk each row of the
// target through the texture in 16.16 steps (TiledTexture.hpp): one add per coordinate
// and pixel, the row's start computed afresh so no error builds up down the screen.
#include <cmath>
#include <string>
#include <vector>

#include "core/Layer.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "effects/warpers/TiledTexture.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

TiledTexture checkedTexture(ComponentContext& in, const Layer32bpp& map) {
    if (!isPowerOfTwo(map.width) || !isPowerOfTwo(map.height))
        in.fail("the map's sides must be powers of two, it is " + std::to_string(map.width) + "x" +
                std::to_string(map.height));
    return tiledTexture(map);
}

}  // namespace

// The texture's centre sits on the target's centre; the angle (radians) turns it
// clockwise, the zoom scales it (2 shows every texel as 2 x 2 pixels, negative turns it
// over). Any other rendu than "normal" blends each row through the bulk copy.
class RotozoomKeytrack32bpp : public Component {
public:
    RotozoomKeytrack32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          map_(in.symbol<Layer32bpp>()),
          angle_(in.symbol<KeytrackFloat>()),
          zoom_(in.symbol<KeytrackFloat>()),
          rendu_(in.symbol<KeytrackInt>()),
          texture_(checkedTexture(in, map_)),
          row_(static_cast<std::size_t>(target_.width)) {}

    void run(float t) override {
        const double angle = angle_.sample(t), zoom = zoom_.sample(t);
        const int rendu = sampleRendu(rendu_, t);
        if (rendu == renduOff) return;
        const double c = std::cos(angle) / zoom, s = std::sin(angle) / zoom;
        const int w = target_.width, h = target_.height;
        const std::uint32_t du = texelFixed(c), dv = texelFixed(-s);
        // Pixel centres, from the target's centre.
        const double x0 = 0.5 - w / 2.0;
        for (int y = 0; y < h; ++y) {
            const double py = y + 0.5 - h / 2.0;
            const std::uint32_t u = texelFixed(map_.width / 2.0 + c * x0 + s * py);
            const std::uint32_t v = texelFixed(map_.height / 2.0 - s * x0 + c * py);
            if (rendu == renduNormal) {
                textureSpan(target_.row(y), row_.size(), texture_, u, v, du, dv);
            } else {
                textureSpan(row_.data(), row_.size(), texture_, u, v, du, dv);
                copyRun(target_.row(y), row_.data(), row_.size(), rendu);
            }
        }
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& map_;
    KeytrackFloat& angle_;
    KeytrackFloat& zoom_;
    KeytrackInt& rendu_;
    TiledTexture texture_;
    std::vector<std::uint32_t> row_;
};

// A floor seen from a height, the horizon a third of the way down the target: rows below
// it show the tiled texture in perspective, one texel a pixel on the bottom row and ever
// more toward the horizon (a focal length of half the width); rows above are left as they
// are. The speed track moves the viewer forward, in texels a second.
class SorbelFloor32bpp : public Component {
public:
    SorbelFloor32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          map_(in.symbol<Layer32bpp>()),
          speed_(in.symbol<KeytrackFloat>()),
          texture_(checkedTexture(in, map_)) {}

    void run(float t) override {
        const double travelled = static_cast<double>(speed_.sample(t)) * t;
        const int w = target_.width, h = target_.height;
        const int horizon = h / 3;
        const double eye = h - horizon, focal = w / 2.0;
        const double x0 = 0.5 - w / 2.0;
        for (int y = horizon; y < h; ++y) {
            const double perPixel = eye / (y + 0.5 - horizon);  // texels a pixel at this row's depth
            textureSpan(target_.row(y), static_cast<std::size_t>(w), texture_,
                        texelFixed(map_.width / 2.0 + x0 * perPixel), texelFixed(focal * perPixel + travelled),
                        texelFixed(perPixel), 0);
        }
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& map_;
    KeytrackFloat& speed_;
    TiledTexture texture_;
};

VZ_COMPONENT("rotozoomKeytrack32bpp", RotozoomKeytrack32bpp)
VZ_COMPONENT("sorbelFloor32bpp", SorbelFloor32bpp)

}  // namespace vz
