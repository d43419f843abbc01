#include "effects/filters/RadialBlur.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "effects/filters/TowardsCentre.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

namespace {

template <int R>
void blurRow(std::uint32_t* row, const std::uint32_t* inwardRow, int width, int cx, const int* inwardX) {
    for (int x = cx; x < width; ++x) row[x] = blend::op<R>(inwardRow[inwardX[x]], row[x]);
    for (int x = cx - 1; x >= 0; --x) row[x] = blend::op<R>(inwardRow[inwardX[x]], row[x]);
}

}  // namespace

int radialCentre(float normalised, int side) {
    const double pixel = std::floor((static_cast<double>(normalised) + 1.0) * (side >> 1));
    return static_cast<int>(std::clamp(pixel, 0.0, static_cast<double>(side - 1)));
}

void radialBlur(std::uint32_t* pixels, int width, int height, int cx, int cy, int intensity, int smoothness,
                int* inwardX, int* inwardY) {
    const int m = 256 - std::clamp(intensity, 0, 256);
    fillTowardsCentre(inwardX, width, cx, m);
    fillTowardsCentre(inwardY, height, cy, m);
    const auto row = [&](int y) { return pixels + static_cast<std::ptrdiff_t>(y) * width; };
    withRendu(std::clamp(smoothness, 0, 32), [&](auto rendu) {
        constexpr int R = decltype(rendu)::value;
        for (int y = cy; y < height; ++y) blurRow<R>(row(y), row(inwardY[y]), width, cx, inwardX);
        for (int y = cy - 1; y >= 0; --y) blurRow<R>(row(y), row(inwardY[y]), width, cx, inwardX);
    });
}

}  // namespace vz
