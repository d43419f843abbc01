#include "effects/filters/ScaledDraw.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/sprites/SpriteDrawing.hpp"

namespace vz {

namespace {

constexpr float maxScale = 65536.0f;

// Clips a placed picture with the sprites' rule and draws it; black pixels are drawn
// like any other unless they are transparent.
void drawPlaced(Layer32bpp& target, const Sprite& sprite, const Layer32bpp& picture, int rendu, BlackPixels black) {
    const auto run = clipSprite(sprite, target);
    if (!run) return;
    if (black == BlackPixels::transparent) {
        drawSprite(target, *run, picture.pixels, picture.width, rendu);
        return;
    }
    const std::uint32_t* pixels = picture.pixels;
    withRendu(rendu, [&](auto level) {
        constexpr int R = decltype(level)::value;
        walkSprite(target, *run, picture.width,
                   [pixels](std::uint32_t& d, std::size_t i) { d = blend::op<R>(pixels[i], d); });
    });
}

}  // namespace

void drawScaled(Layer32bpp& target, const Layer32bpp& picture, float x, float y, float scaleX, float scaleY, int rendu,
                BlackPixels black) {
    if (!(scaleX > 0.0f) || !(scaleY > 0.0f) || !std::isfinite(x) || !std::isfinite(y)) return;
    Sprite sprite{picture.width, picture.height, 0, 0, std::min(scaleX, maxScale), std::min(scaleY, maxScale)};
    placeSprite(sprite, target, x, y);
    drawPlaced(target, sprite, picture, clampRendu(rendu), black);
}

void drawAt(Layer32bpp& target, const Layer32bpp& picture, int cornerX, int cornerY, int rendu, BlackPixels black) {
    Sprite sprite{picture.width, picture.height, cornerX, cornerY, 1.0f, 1.0f};
    drawPlaced(target, sprite, picture, clampRendu(rendu), black);
}

}  // namespace vz
