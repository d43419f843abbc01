#pragma once
// Sprites that turn: the picture rotated by an angle (radians, clockwise on the screen,
// whose rows run downward) and scaled. The rotated picture's bounding box is placed and
// clipped like any sprite; every box pixel inside the run is then mapped back into the
// picture by the inverse rotation, in 16.16 steps along rows and columns. Box pixels that
// land outside the picture, and black picture pixels, leave the target as it is.
#include <cstdint>

#include "core/Layer.hpp"
#include "effects/sprites/SpriteDrawing.hpp"

namespace vz {

// A picture turned and scaled: the inverse map from box pixels to picture positions, in
// 16.16.
struct RotatedSprite {
    Sprite box;                   // the bounding box on the target, scale 1
    std::int64_t startU, startV;  // picture position of box pixel (0, 0)
    std::int64_t uPerX, vPerX, uPerY, vPerY;
};

// The map of a width x height picture turned by `angle` and scaled by `scale` (above 0).
// Boxes of 65536 pixels or more on a side stay empty: they would only ever show a few
// picture pixels.
RotatedSprite rotateSprite(int width, int height, float scale, float angle);

// Draws the run that clipping left of r.box through the rendu operator.
void drawRotatedSprite(Layer32bpp& target, const Layer32bpp& picture, const RotatedSprite& r, const SpriteRun& run,
                       int rendu);

}  // namespace vz
