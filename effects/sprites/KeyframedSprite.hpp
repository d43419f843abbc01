#pragma once
// The sprite of a component that follows a sprite track (x, y, scaleX, scaleY).
#include <optional>

#include "effects/sprites/SpriteDrawing.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class KeyframedSprite {
public:
    KeyframedSprite(int width, int height) : sprite_{width, height} {}

    // The frame at local time t: the sprite is centred with the scale it already holds
    // (the previous frame's, 1.0 on the first) and only then takes the track's scale,
    // which sets the drawn size. So a changing scale moves the centre one frame late;
    // that lag is how these sprites have always moved.
    std::optional<SpriteRun> frame(KeytrackSprite& track, float t, const Layer& target) {
        const SpriteValue key = track.sample(t);
        placeSprite(sprite_, target, key.x, key.y);
        sprite_.scaleX = key.scaleX;
        sprite_.scaleY = key.scaleY;
        return clipSprite(sprite_, target);
    }

private:
    Sprite sprite_;
};

}  // namespace vz
