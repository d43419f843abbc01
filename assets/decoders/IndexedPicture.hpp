#pragma once
// An 8-bit picture with its palette, as the PCX decoder produces it: width x height
// palette indices, rows from the top, and 256 colours as 0x00RRGGBB.
#include <array>
#include <cstdint>
#include <vector>

#include "assets/decoders/ByteReader.hpp"

namespace vz {

using Palette256 = std::array<std::uint32_t, 256>;

struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> indices;
    Palette256 palette{};
};

// 256 entries of three bytes red, green, blue, each becoming 0x00RRGGBB.
inline bool readRgbPalette(ByteReader& reader, Palette256& palette) {
    std::span<const std::uint8_t> rgb;
    if (!reader.take(palette.size() * 3, rgb)) return false;
    for (std::size_t i = 0; i < palette.size(); ++i)
        palette[i] = static_cast<std::uint32_t>(rgb[3 * i]) << 16 | rgb[3 * i + 1] << 8 | rgb[3 * i + 2];
    return true;
}

// Why a decoder gave up. `rejected` is the file format's own refusal (wrong magic, wrong
// depth); the others are damage our checks find: the loaders report them with a reason.
enum class DecodeStatus { ok, rejected, truncated, badSize, corrupt };

// The reason text for damage found by our checks; null for ok and rejected.
inline const char* damageReason(DecodeStatus status) {
    switch (status) {
    case DecodeStatus::truncated: return "data ends early";
    case DecodeStatus::badSize: return "picture size out of range";
    case DecodeStatus::corrupt: return "corrupt picture data";
    default: return nullptr;
    }
}

}  // namespace vz
