#pragma once
// Palettes and colours changed as wholes, every frame: blends of two into a third, and
// rotations.
#include <cstdint>

#include "core/Palette.hpp"

namespace vz {

// Channel = trunc(from + (to - from) x factor), the factor not limited to 0..1; a channel
// pushed past 0-255 wraps to its low byte. The alpha byte of the result is from's.
std::uint32_t blendKeepingAlpha(std::uint32_t from, std::uint32_t to, float factor);

// Every entry of target = blendKeepingAlpha of the same entries of from and to.
void blendPalettes(Palette& target, const Palette& from, const Palette& to, float factor);

// k = shift AND 255: target entries 0..k-1 take source entries k..2k-1, entries k..255
// take source entries 0..255-k. For k above 128 the first block would run past source
// entry 255; it wraps to the start of the source instead. The source is read from a
// copy, so a palette rotated into itself gives the same result.
void rotatePalette(Palette& target, const Palette& source, int shift);

}  // namespace vz
