#include "effects/transitions/ScanLines.hpp"

#include <algorithm>
#include <cmath>

#include "effects/transitions/RowShift.hpp"

namespace vz {

namespace {

// A float held within +-limit; not a number gives 0.
float heldWithin(float value, float limit) { return std::isnan(value) ? 0.0f : std::clamp(value, -limit, limit); }

}  // namespace

void interleaveRows(Layer32bpp& target, const Layer32bpp& source, float progress) {
    const int w = target.width;
    const int away = static_cast<int>((1.0f - progress) * static_cast<float>(w));
    for (int y = 0; y < target.height; ++y) copyRowSlid(target.row(y), source.row(y), w, y % 2 == 0 ? -away : away);
}

void skewIn(Layer32bpp& target, const Layer32bpp& source, float amplitude, float progress) {
    const float a = std::max(0.0f, heldWithin(amplitude, 1000.0f));
    const int w = target.width, h = target.height;
    for (int y = 0; y < h; ++y) {
        const float done = progress >= 1.0f ? 1.0f : std::clamp(progress * (1.0f + a) - a * y / h, 0.0f, 1.0f);
        const int shift = static_cast<int>((1.0f - done) * static_cast<float>(w));
        copyRowSlid(target.row(y), source.row(y), w, shift);
    }
}

void shearRows(Layer32bpp& target, const Layer32bpp& source, float amplitude) {
    const int w = target.width, h = target.height;
    const float a = heldWithin(amplitude, 1.0e6f);
    const float half = std::max(1, h / 2);
    for (int y = 0; y < h; ++y) {
        const int shift = static_cast<int>(a * static_cast<float>(y - h / 2) / half);
        copyRowTurned(target.row(y), source.row(y), w, shift);
    }
}

}  // namespace vz
