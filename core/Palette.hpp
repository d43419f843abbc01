#pragma once
// 256 colour words in the pixel layout (blue byte 0, green 1, red 2) and an extra
// per-entry byte in byte 3. Palettes come from picture files.
#include <array>
#include <cstdint>

#include "core/Resource.hpp"

namespace vz {

class Palette : public Resource {
public:
    static const char* staticKind() { return "Palette"; }
    const char* kindName() const override { return staticKind(); }

    std::array<std::uint32_t, 256> colors{};

    void setAlpha(std::uint8_t value);  // byte 3 of every entry
    void setAlphaGradient();            // byte 3 of entry i = i
    // Entries first..first+count-1 move toward `color` by factor (0 = unchanged).
    void blendRangeToColor(int first, int count, std::uint32_t color, float factor);
    // Entries first..first+count-1 move toward the same entries of `other`.
    void blendRangeToPalette(int first, int count, const Palette& other, float factor);
};

// One colour word, declared by "add name Color a b g r".
class Color : public Resource {
public:
    explicit Color(std::uint32_t v = 0) : value(v) {}
    static const char* staticKind() { return "Color"; }
    const char* kindName() const override { return staticKind(); }
    std::uint32_t value;
};

}  // namespace vz
