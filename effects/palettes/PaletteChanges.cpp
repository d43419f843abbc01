#include "effects/palettes/PaletteChanges.hpp"

#include <array>

#include "effects/palettes/ColourMix.hpp"

namespace vz {

std::uint32_t blendKeepingAlpha(std::uint32_t from, std::uint32_t to, float factor) {
    return (from & 0xFF000000u) | mixColourTruncated(from, to, factor);
}

void blendPalettes(Palette& target, const Palette& from, const Palette& to, float factor) {
    for (int i = 0; i < 256; ++i) target.colors[i] = blendKeepingAlpha(from.colors[i], to.colors[i], factor);
}

void rotatePalette(Palette& target, const Palette& source, int shift) {
    const int k = shift & 255;
    const std::array<std::uint32_t, 256> colours = source.colors;
    for (int i = 0; i < k; ++i) target.colors[i] = colours[(k + i) & 255];
    for (int i = k; i < 256; ++i) target.colors[i] = colours[i - k];
}

}  // namespace vz
