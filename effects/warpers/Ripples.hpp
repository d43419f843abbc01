#pragma once
// Rings of waves spreading from the target's centre, as on water: every pixel shows the
// picture moved along its direction from the centre by amplitude x sin(2 pi (r / L - t
// x pace)), r its distance from the centre and L the wavelength (an eighth of the
// target's height). The distance's phase and the direction of each pixel are a table
// made once; a frame only builds one turn of the wave, so the loops add, multiply by
// small integers, shift and clamp.
#include <array>
#include <cstdint>
#include <vector>

#include "effects/procedural/SineTable.hpp"

namespace vz {

class Ripples {
public:
    static constexpr double pace = 0.75;  // waves leaving the centre a second

    Ripples(int w, int h);

    // Builds the frame's wave for `amplitude` pixels at local time t.
    void frame(float amplitude, float t);

    // The w x h target from a picture whose rows are `stride` pixels apart: each pixel
    // shows the picture's pixel moved by the wave, held inside the picture.
    void warp(std::uint32_t* dst, const std::uint32_t* src, int stride) const;
    // The same from an 8-bit picture, lit: lut[light * 256 + index], the light 128 on flat
    // water, lighter on the slopes that face the centre and darker on the others.
    void warpLit(std::uint32_t* dst, const std::uint8_t* src, int stride, const std::uint32_t* lut) const;

private:
    int w_, h_;
    // Per pixel: phase (bits 0-11), direction x and y (signed bytes in bits 16-23 and
    // 24-31, 127 for a whole unit).
    std::vector<std::uint32_t> entries_;
    std::array<int, sine::steps> shift_{};  // displacement in 1/256 pixel at each phase
    std::array<std::uint8_t, sine::steps> light_{};
};

}  // namespace vz
