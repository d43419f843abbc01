#include "effects/procedural/SineTable.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vz::sine {

const std::array<std::int16_t, steps>& table() {
    static const std::array<std::int16_t, steps> values = [] {
        std::array<std::int16_t, steps> v{};
        for (int i = 0; i < steps; ++i)
            v[i] = static_cast<std::int16_t>(std::lround(std::sin(2.0 * std::numbers::pi * i / steps) * one));
        return v;
    }();
    return values;
}

int phaseOfTurns(double turns) {
    if (!std::isfinite(turns)) return 0;
    const double fraction = turns - std::floor(turns);
    return static_cast<int>(fraction * steps) & mask;
}

void scaledWave(int* out, double amplitude) {
    // Far beyond any picture, and no number at all, are held where the sums stay in range.
    const double k = std::isfinite(amplitude) ? std::clamp(amplitude, -1e6, 1e6) / one : 0.0;
    for (int i = 0; i < steps; ++i) out[i] = static_cast<int>(std::lround(table()[i] * k));
}

}  // namespace vz::sine
