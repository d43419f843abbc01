#pragma once
// Concentric rings round several moving centres, summed: one table of ring heights, twice
// the target's size each way and centred on (W, H), serves every centre: a centre at
// (cx, cy) on the target reads the target-sized window that starts at (W - cx, H - cy).
#include <array>
#include <cstdint>
#include <vector>

#include "core/Layer.hpp"

namespace vz {

struct RingCentre {
    double x = 0, y = 0;  // target pixels
};

class RingField {
public:
    static constexpr int centres = 3;
    static constexpr int ringHeight = 255 / centres;

    // `period`: the distance in pixels from one crest to the next.
    RingField(int w, int h, double period);

    // Pixel i of the target gets palette[sum of the three centres' ring heights]. Centres
    // are held inside the target (rounded to whole pixels), so every window lies in the
    // table.
    void draw(Layer32bpp& target, const std::array<RingCentre, centres>& at, const std::uint32_t* palette);

private:
    int w_, h_;
    std::vector<std::uint8_t> rings_;    // 2w x 2h
    std::vector<std::uint8_t> indices_;  // one row
};

}  // namespace vz
