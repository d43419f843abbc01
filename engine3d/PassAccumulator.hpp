#pragma once
// How the multi-pass mesh players combine their eight drawings of a frame. Each pass is
// drawn on a cleared pass picture and an eighth of it (each channel shifted right by 3)
// is added into a work layer, so the work layer ends as the passes' average (each
// channel at most 8 x 31 = 248, so the sums never carry into the next channel). The
// work layer is then added to the target with the saturating "add", like a light: the
// object shows over the background, its soft edges fading into it.
//
// The work layer is taken from the layer memory at the start of a frame and given back
// at its end; the pass picture is the player's own and is made again only when the
// target's size changes.
#include <cstdint>
#include <memory>
#include <vector>

#include "core/Layer.hpp"

namespace vz {

// work[i] += (pass[i] >> 3) per channel, for n pixels.
void accumulateEighth(std::uint32_t* work, const std::uint32_t* pass, std::size_t n);

class PassAccumulator {
public:
    // A cleared work layer of the target's size.
    void begin(const Layer32bpp& target);
    // The cleared picture of the next pass.
    Layer32bpp& nextPass();
    // The pass just drawn, added into the work layer.
    void accumulate();
    // The work layer added to the target, then given back.
    void combineInto(Layer32bpp& target);

private:
    std::unique_ptr<Layer32bpp> work_;
    std::vector<std::uint32_t> passPixels_;
    std::unique_ptr<Layer32bpp> pass_;
};

}  // namespace vz
