#pragma once
// The classic fire on an 8-bit layer of palette indices. Each step every pixel becomes the
// mean of three neighbours on a row below and the pixel under the middle one, less a
// little cooling, so heat rises and fades; the bottom rows are the fuel, redrawn each step
// as random hot and cold patches. Index 0 is cold, 255 the hottest.
//
// A step lifts the heat by one row for every 400 rows of the layer (rounded, at least
// one), and
// the cooling is set so the flames reach about half the height: a fire looks the same on
// any size of layer for the same number of steps.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "effects/filters/Noise.hpp"

namespace vz {

// One row of the rise, w pixels, from two rows lower down:
//   out[x] = max(0, ((below[x-1] + below[x] + below[x+1] + below2[x]) >> 2) - cooling[x]),
// a missing neighbour at either end read from the pixel's own column. The SSE2 form adds
// sixteen pixels at once in 16-bit lanes; the scalar form is its reference.
void fireRow(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
             std::size_t w);
void fireRowScalar(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2,
                   const std::uint8_t* cooling, std::size_t w);
void fireRowSse2(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
                 std::size_t w);

namespace detail {
// The two end pixels of a row, and the pixels from .. to - 1 that have both neighbours
// (1 <= from, to <= w - 1): the scalar pieces the SSE2 form leaves.
void fireEnds(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
              std::size_t w);
void fireInner(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
               std::size_t from, std::size_t to);
}  // namespace detail

class Fire {
public:
    Fire(int w, int h, std::uint32_t seed);

    // Black, and the noise back to its seed: the steps that follow repeat exactly.
    void restart(std::uint8_t* pixels);
    void step(std::uint8_t* pixels);

private:
    int w_, h_;
    int rise_;  // rows a step lifts the heat
    std::uint32_t seed_;
    NoiseGenerator noise_;
    std::vector<std::uint8_t> cooling_;  // w + 4096 entries; each row reads w from a random start
};

}  // namespace vz
