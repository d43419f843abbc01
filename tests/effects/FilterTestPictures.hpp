#pragma once
// Small pictures shared by the filter and transition tests.
#include <cstdint>
#include <random>
#include <vector>

#include "core/Layer.hpp"
#include "support/PlayerRun.hpp"

namespace vz::test {

// A grey pixel (the same value in the three colour bytes, alpha 0).
constexpr std::uint32_t grey(std::uint32_t g) { return g * 0x010101u; }

inline std::vector<std::uint32_t> pixelsOf(const Layer32bpp& layer) {
    return {layer.pixels, layer.pixels + layer.pixelCount()};
}

// The frame checksum of the end-to-end runs, of a layer: pins a noisy picture exactly.
inline std::uint64_t checksumOf(const Layer32bpp& layer) {
    return checksum(Picture{layer.width, layer.height, pixelsOf(layer)});
}

inline void setPixels(Layer32bpp& layer, const std::vector<std::uint32_t>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) layer.pixels[i] = values[i];
}

inline void fillRandom(Layer32bpp& layer, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (std::int64_t i = 0; i < layer.pixelCount(); ++i) layer.pixels[i] = random();
}

// Each pixel tells where it is: x in the low byte, y in the next.
inline void fillCoordinates(Layer32bpp& layer) {
    for (int y = 0; y < layer.height; ++y)
        for (int x = 0; x < layer.width; ++x) layer.row(y)[x] = static_cast<std::uint32_t>(y << 8 | x);
}

}  // namespace vz::test
