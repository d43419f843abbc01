#pragma once
// A lit corridor that sways: a tunnel table and a light map are built once, a quarter of
// the width wider than the target on each side; every frame each row is read through a
// horizontal shift that follows a sine wave running down the screen, so the corridor
// snakes from side to side by the amplitude. The light belongs to the corridor (dark in
// the distance, bright on the near walls) and sways with it; a LUT colours the texture
// under each light level as in the lit tunnel.
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

class Corridor {
public:
    static constexpr double swayRate = 2.0;  // radians per second of the wave's phase

    // The tables for a target of width x height.
    Corridor(int width, int height);

    // Row y is shifted by amplitude * sin(2 pi y / H + swayRate t) pixels, rounded and held
    // within the margin (not a number: no shift). texture and lut hold 65,536 entries.
    void draw(Layer32bpp& target, const std::uint8_t* texture, const std::uint32_t* lut, float amplitude,
              std::uint32_t offset, float t) const;

private:
    int shiftOf(double shift) const;

    int margin_;
    Layer32bpp table_;  // (W + 2 margin) x H
    Layer8bpp light_;
};

}  // namespace vz
