#include "effects/transitions/Drip.hpp"

#include <cmath>

#include "core/SafeNumbers.hpp"

namespace vz {

namespace {

constexpr int smoothing = 15;  // odd

}  // namespace

std::vector<float> dripFactors(int width, NoiseGenerator& generator) {
    const int w = width;
    std::vector<int> raw(w);
    for (int& value : raw) value = generator.nextByte();
    std::vector<float> factors(w);
    for (int x = 0; x < w; ++x) {
        int sum = 0;
        for (int k = -smoothing / 2; k <= smoothing / 2; ++k) sum += raw[((x + k) % w + w) % w];
        factors[x] = 0.5f + 0.5f * static_cast<float>(sum) / (255.0f * smoothing);
    }
    return factors;
}

void drip(Layer32bpp& target, const Layer32bpp& source, const float* factors, int* drops, float t, float speed) {
    const int w = target.width, h = target.height;
    // An infinite local time with a speed of 0 would make a travel that is not a number.
    const bool moving = std::isfinite(speed) && speed != 0.0f && t > 0.0f;
    const double travel = moving ? static_cast<double>(t) * speed * h : 0.0;
    for (int x = 0; x < w; ++x) drops[x] = clampToInt(travel * factors[x], -h, h);
    for (int y = 0; y < h; ++y) {
        std::uint32_t* out = target.row(y);
        for (int x = 0; x < w; ++x) {
            const int sy = y - drops[x];
            if (sy >= 0 && sy < h) out[x] = source.row(sy)[x];
        }
    }
}

}  // namespace vz
