#include "core/Palette.hpp"

#include <algorithm>

namespace vz {

namespace {

// One byte moved toward its target: (target - source) x factor + source in floating
// point, truncated to an integer. A factor outside 0..1 may overshoot; the byte then
// saturates instead of wrapping.
std::uint32_t blendByte(std::uint32_t source, std::uint32_t target, float factor) {
    float value = (static_cast<float>(target) - static_cast<float>(source)) * factor + static_cast<float>(source);
    return static_cast<std::uint32_t>(std::clamp(value, 0.0f, 255.0f));
}

// The three colour bytes of `source` moved toward `target`; byte 3 (the extra
// per-entry byte) is kept.
std::uint32_t blendColor(std::uint32_t source, std::uint32_t target, float factor) {
    std::uint32_t result = source & 0xFF000000u;
    for (int shift = 0; shift <= 16; shift += 8)
        result |= blendByte(source >> shift & 0xFF, target >> shift & 0xFF, factor) << shift;
    return result;
}

// The part of first..first+count-1 that lies inside the palette.
void clampRange(int& first, int& end, int count) {
    end = static_cast<int>(std::clamp<long long>(static_cast<long long>(first) + count, 0, 256));
    first = std::clamp(first, 0, 256);
}

}  // namespace

void Palette::setAlpha(std::uint8_t value) {
    for (std::uint32_t& entry : colors) entry = (entry & 0x00FFFFFFu) | std::uint32_t{value} << 24;
}

void Palette::setAlphaGradient() {
    for (std::uint32_t i = 0; i < colors.size(); ++i) colors[i] = (colors[i] & 0x00FFFFFFu) | i << 24;
}

void Palette::blendRangeToColor(int first, int count, std::uint32_t color, float factor) {
    int end = 0;
    clampRange(first, end, count);
    for (int i = first; i < end; ++i) colors[i] = blendColor(colors[i], color, factor);
}

void Palette::blendRangeToPalette(int first, int count, const Palette& other, float factor) {
    int end = 0;
    clampRange(first, end, count);
    for (int i = first; i < end; ++i) colors[i] = blendColor(colors[i], other.colors[i], factor);
}

}  // namespace vz
