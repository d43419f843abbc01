#include "effects/procedural/Fire.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "effects/procedural/ScalarChoice.hpp"

namespace vz {

namespace {

constexpr std::size_t coolingStarts = 4096;
constexpr int fuelPatch = 8;  // pixels of one hot or cold patch of fuel

// The mean of the four neighbours less the cooling, held at 0.
inline std::uint8_t cooled(unsigned sum, std::uint8_t cooling) {
    const unsigned mean = sum >> 2;
    return static_cast<std::uint8_t>(mean > cooling ? mean - cooling : 0);
}

}  // namespace

namespace detail {

void fireEnds(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
              std::size_t w) {
    if (w == 0) return;
    const std::size_t last = w - 1;
    // Computed before either is stored: a row of one pixel is both ends.
    const std::uint8_t first =
        cooled(below[0] + below[0] + below[std::min<std::size_t>(1, last)] + below2[0], cooling[0]);
    const std::uint8_t end =
        cooled(below[last == 0 ? 0 : last - 1] + below[last] + below[last] + below2[last], cooling[last]);
    out[0] = first;
    out[last] = end;
}

void fireInner(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
               std::size_t from, std::size_t to) {
    for (std::size_t x = from; x < to; ++x)
        out[x] = cooled(unsigned{below[x - 1]} + below[x] + below[x + 1] + below2[x], cooling[x]);
}

}  // namespace detail

void fireRowScalar(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2,
                   const std::uint8_t* cooling, std::size_t w) {
    if (w == 0) return;
    detail::fireInner(out, below, below2, cooling, 1, w - 1);
    detail::fireEnds(out, below, below2, cooling, w);
}

void fireRow(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* below2, const std::uint8_t* cooling,
             std::size_t w) {
    if (scalarKernelsChosen())
        fireRowScalar(out, below, below2, cooling, w);
    else
        fireRowSse2(out, below, below2, cooling, w);
}

Fire::Fire(int w, int h, std::uint32_t seed)
    : w_(w),
      h_(h),
      rise_(std::max(1, (h + 200) / 400)),
      seed_(seed),
      noise_(seed),
      cooling_(static_cast<std::size_t>(w) + coolingStarts) {
    // The mean loses about 3/8 of a level a step by itself; the rest of the 450 / steps
    // levels a step that stop the flames near half the height (steps = h / rise) is spread
    // as whole levels over random pixels.
    const double perStep = std::max(0.0, 450.0 * rise_ / h - 0.375);
    const int whole = static_cast<int>(perStep);
    const auto chance = static_cast<unsigned>((perStep - whole) * 256.0);
    for (auto& c : cooling_) c = static_cast<std::uint8_t>(std::min(255, whole + (noise_.nextByte() < chance ? 1 : 0)));
}

void Fire::restart(std::uint8_t* pixels) {
    std::memset(pixels, 0, static_cast<std::size_t>(w_) * static_cast<std::size_t>(h_));
    noise_ = NoiseGenerator(seed_);
}

void Fire::step(std::uint8_t* pixels) {
    const auto w = static_cast<std::size_t>(w_);
    const std::size_t below = static_cast<std::size_t>(rise_) * w;
    for (int y = 0; y + rise_ + 1 < h_; ++y) {
        std::uint8_t* row = pixels + static_cast<std::size_t>(y) * w;
        fireRow(row, row + below, row + below + w, cooling_.data() + (noise_.next() & (coolingStarts - 1)), w);
    }
    // Fuel: the same patches on the bottom rise + 1 rows (or on all there are).
    const int fuelRows = std::min(h_, rise_ + 1);
    std::uint8_t* fuel = pixels + static_cast<std::size_t>(h_ - fuelRows) * w;
    for (std::size_t x = 0; x < w; x += fuelPatch) {
        const std::uint8_t heat = noise_.nextByte() < 128 ? 255 : 0;
        std::memset(fuel + x, heat, std::min<std::size_t>(fuelPatch, w - x));
    }
    for (int r = 1; r < fuelRows; ++r) std::memcpy(fuel + static_cast<std::size_t>(r) * w, fuel, w);
}

}  // namespace vz
