#include "effects/warpers/Displacement.hpp"

#include <algorithm>
#include <cstddef>

#include "effects/warpers/WarpSampling.hpp"

namespace vz {

void displacementRow(std::uint32_t* dst, const std::uint32_t* src, int stride, int w, int h, int y,
                     const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down,
                     const SlopeMoves& moves) {
    const int* across = moves.across + slopeCount / 2;
    const int* downward = moves.down + slopeCount / 2;
    const std::int64_t* downOffset = moves.downOffset + slopeCount / 2;
    const int last = w - 1;
    const auto clamped = [&](int x) {
        const int slopeX = row[std::min(x + 1, last)] - row[std::max(x - 1, 0)];
        const int sx = clampToEdge(x + across[slopeX], w), sy = clampToEdge(y + downward[down[x] - up[x]], h);
        return src[static_cast<std::size_t>(sy) * static_cast<std::size_t>(stride) + static_cast<std::size_t>(sx)];
    };
    int from = w, to = w;  // the columns read without clamps: both neighbours there, no move leaves
    if (y >= moves.largest && y < h - moves.largest) {
        from = std::clamp(std::max(1, moves.largest), 0, w);
        to = std::clamp(std::min(last, w - moves.largest), from, w);
    }
    for (int x = 0; x < from; ++x) dst[x] = clamped(x);
    const std::uint32_t* base = src + static_cast<std::int64_t>(y) * stride;
    fillInFours(dst, from, to,
                [&](int x) { return base[x + across[row[x + 1] - row[x - 1]] + downOffset[down[x] - up[x]]]; });
    for (int x = to; x < w; ++x) dst[x] = clamped(x);
}

}  // namespace vz
