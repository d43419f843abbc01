#include "effects/transitions/RowShift.hpp"

#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

void copyRowSlid(std::uint32_t* dst, const std::uint32_t* src, int width, int shift) {
    if (shift >= width || shift <= -width) return;
    if (shift >= 0)
        copyRun(dst + shift, src, static_cast<std::size_t>(width - shift), renduNormal);
    else
        copyRun(dst, src - shift, static_cast<std::size_t>(width + shift), renduNormal);
}

void copyRowTurned(std::uint32_t* dst, const std::uint32_t* src, int width, int shift) {
    if (width <= 0) return;
    int s = shift % width;
    if (s < 0) s += width;
    copyRun(dst + s, src, static_cast<std::size_t>(width - s), renduNormal);
    copyRun(dst, src + (width - s), static_cast<std::size_t>(s), renduNormal);
}

}  // namespace vz
