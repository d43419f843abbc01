#include "effects/filters/Corners.hpp"

#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

std::vector<int> cornerCuts(int r) {
    std::vector<int> cuts;
    for (int j = 0; j < r; ++j) {
        const double dy = r - j - 0.5;
        int outside = 0;
        while (outside < r) {
            const double dx = r - outside - 0.5;
            if (dx * dx + dy * dy <= static_cast<double>(r) * r) break;
            ++outside;
        }
        cuts.push_back(outside);
    }
    return cuts;
}

void fillCorners(Layer32bpp& target, const std::vector<int>& cuts, std::uint32_t colour) {
    const int w = target.width, h = target.height;
    for (int j = 0; j < static_cast<int>(cuts.size()); ++j) {
        const auto n = static_cast<std::size_t>(cuts[j]);
        for (int y : {j, h - 1 - j}) {
            fillRun(target.row(y), colour, n, renduNormal);
            fillRun(target.row(y) + w - n, colour, n, renduNormal);
        }
    }
}

}  // namespace vz
