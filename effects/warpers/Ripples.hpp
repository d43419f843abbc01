#pragma once
// Rings of waves spreading from the target's centre, as on water: every pixel shows the
// picture moved along its direction from the centre by amplitude x sin(2 pi (r / L - t
// x pace)), r its distance from the centre and L the wavelength (an eighth of the
// target's height).
//
// Each pixel keeps, from a table made once, its place in the wave (256 steps a wavelength)
// and its direction (the nearest of 32). A frame builds the move of every (place,
// direction) pair, 8192 of them, both as (dx, dy) and as one offset into the picture;
// pixels further than the amplitude from the edges then cost a table read, an add and a
// pixel read, and only the rim is clamped pixel by pixel.
#include <array>
#include <cstdint>
#include <vector>

namespace vz {

class Ripples {
public:
    static constexpr double pace = 0.75;  // waves leaving the centre a second
    static constexpr int places = 256, directions = 32;
    static constexpr int maxAmplitude = 127;  // pixels: a move is a signed byte

    // A w x h target reading a picture whose rows are `stride` pixels apart.
    Ripples(int w, int h, int stride);

    // Builds the frame's moves for `amplitude` pixels (held within +-127) at local time t.
    void frame(float amplitude, float t);

    // Each target pixel gets the picture's pixel moved by the wave, held inside the w x h
    // picture.
    void warp(std::uint32_t* dst, const std::uint32_t* src);
    // The same from an 8-bit picture, lit: lut[light * 256 + index], the light 128 on flat
    // water, lighter on the slopes that face the centre and darker on the others.
    void warpLit(std::uint32_t* dst, const std::uint8_t* src, const std::uint32_t* lut);

private:
    template <class Pixel>
    void walk(std::uint32_t* dst, Pixel pixel);

    int w_, h_, stride_;
    int margin_ = 0;                                          // the frame's largest move, in pixels
    std::vector<std::uint16_t> entries_;                      // per pixel: place << 5 | direction
    std::array<std::int32_t, places * directions> offset_{};  // dy * stride + dx
    std::array<std::uint16_t, places * directions> move_{};   // dx and dy as bytes
    std::array<std::uint8_t, places> light_{};
    std::vector<std::uint32_t> row_;  // one target row, copied out whole (see WarpSampling.hpp)
};

}  // namespace vz
