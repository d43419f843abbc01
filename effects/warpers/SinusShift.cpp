#include "effects/warpers/SinusShift.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/warpers/WarpSampling.hpp"

namespace vz {

void sinusShiftRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                   const SinusShifts& shifts) {
    const int rowShift = shifts.rowShift[y];
    const auto clamped = [&](int x) {
        const int sy = clampToEdge(y + shifts.columnShift[x], h), sx = clampToEdge(x + rowShift, w);
        return src[static_cast<std::size_t>(sy) * static_cast<std::size_t>(stride) + static_cast<std::size_t>(sx)];
    };
    int from = w, to = w;  // the columns read without clamps
    if (y >= shifts.largest && y < h - shifts.largest) {
        from = std::clamp(-rowShift, 0, w);
        to = std::clamp(w - rowShift, from, w);
    }
    for (int x = 0; x < from; ++x) dst[x] = clamped(x);
    const std::uint32_t* row = src + static_cast<std::int64_t>(y) * stride + rowShift;
    const std::int64_t* offset = shifts.columnOffset;
    fillInFours(dst, from, to, [&](int x) { return row[x + offset[x]]; });
    for (int x = to; x < w; ++x) dst[x] = clamped(x);
}

}  // namespace vz
