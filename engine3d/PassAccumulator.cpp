#include "engine3d/PassAccumulator.hpp"

#include <algorithm>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

void accumulateEighth(std::uint32_t* work, const std::uint32_t* pass, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) work[i] += pass[i] >> 3 & 0x1F1F1Fu;
}

void PassAccumulator::begin(const Layer32bpp& target) {
    work_ = std::make_unique<Layer32bpp>(target.width, target.height);
    fillRun(work_->pixels, 0, static_cast<std::size_t>(work_->pixelCount()), renduNormal);
    if (!pass_ || pass_->width != target.width || pass_->height != target.height) {
        passPixels_.assign(static_cast<std::size_t>(target.pixelCount()), 0);
        pass_ = std::make_unique<Layer32bpp>(target.width, target.height, passPixels_.data());
    }
}

Layer32bpp& PassAccumulator::nextPass() {
    std::fill(passPixels_.begin(), passPixels_.end(), 0u);
    return *pass_;
}

void PassAccumulator::accumulate() { accumulateEighth(work_->pixels, pass_->pixels, passPixels_.size()); }

void PassAccumulator::combineInto(Layer32bpp& target) {
    copyRun(target.pixels, work_->pixels, static_cast<std::size_t>(target.pixelCount()), renduAdd);
    work_.reset();
}

}  // namespace vz
