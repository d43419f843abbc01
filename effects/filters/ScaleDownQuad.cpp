#include "effects/filters/ScaleDownQuad.hpp"

#include <cstddef>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/rendu/ScaleDown.hpp"

namespace vz {

void scaleDownQuad(Layer32bpp& target, Layer32bpp& quarter) {
    scaleDown(quarter, target);
    const int qw = quarter.width, qh = quarter.height;
    for (int y = 0; y < qh; ++y) {
        const std::uint32_t* small = quarter.row(y);
        for (int top : {y, y + qh}) {
            copyRun(target.row(top), small, static_cast<std::size_t>(qw), renduNormal);
            copyRun(target.row(top) + qw, small, static_cast<std::size_t>(qw), renduNormal);
        }
    }
}

}  // namespace vz
