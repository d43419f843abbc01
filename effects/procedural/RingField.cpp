#include "effects/procedural/RingField.hpp"

#include <cmath>

#include "core/SafeNumbers.hpp"
#include "effects/procedural/PaletteKernels.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

RingField::RingField(int w, int h, double period)
    : w_(w),
      h_(h),
      rings_(static_cast<std::size_t>(2 * w) * static_cast<std::size_t>(2 * h)),
      indices_(static_cast<std::size_t>(w)) {
    // A sine across each ring, from 0 to ringHeight: the three heights add up to at most
    // 255, so crests meeting show the top of the palette and troughs the bottom.
    const double turnsPerPixel = 1.0 / period;
    std::size_t i = 0;
    for (int y = 0; y < 2 * h; ++y)
        for (int x = 0; x < 2 * w; ++x) {
            const int phase = sine::phaseOfTurns(std::hypot(x - w, y - h) * turnsPerPixel);
            rings_[i++] =
                static_cast<std::uint8_t>(ringHeight / 2 + ((ringHeight / 2) * sine::at(phase) >> sine::shift));
        }
}

void RingField::draw(Layer32bpp& target, const std::array<RingCentre, centres>& at, const std::uint32_t* palette) {
    const std::size_t stride = static_cast<std::size_t>(2 * w_);
    std::array<const std::uint8_t*, centres> window{};
    for (int k = 0; k < centres; ++k) {
        const int cx = clampToInt(std::floor(at[k].x + 0.5), 0, w_);
        const int cy = clampToInt(std::floor(at[k].y + 0.5), 0, h_);
        window[k] = rings_.data() + static_cast<std::size_t>(h_ - cy) * stride + static_cast<std::size_t>(w_ - cx);
    }
    for (int y = 0; y < h_; ++y) {
        const std::size_t row = static_cast<std::size_t>(y) * stride;
        ringSumIndices(indices_.data(), window[0] + row, window[1] + row, window[2] + row, indices_.size());
        copyRunPalette(target.row(y), indices_.data(), palette, indices_.size());
    }
}

}  // namespace vz
