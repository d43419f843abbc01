#pragma once
// Byte appending for the encoders: little-endian, big-endian and fixed-width text fields.
#include <cstdint>
#include <string>
#include <vector>

namespace vz::writers {

using Bytes = std::vector<uint8_t>;

inline void put8(Bytes& out, unsigned v) { out.push_back(uint8_t(v)); }

inline void put16le(Bytes& out, unsigned v) {
    out.push_back(uint8_t(v));
    out.push_back(uint8_t(v >> 8));
}

inline void put32le(Bytes& out, uint32_t v) {
    put16le(out, v & 0xFFFF);
    put16le(out, v >> 16);
}

inline void put16be(Bytes& out, unsigned v) {
    out.push_back(uint8_t(v >> 8));
    out.push_back(uint8_t(v));
}

inline void putText(Bytes& out, const std::string& text, size_t width) {
    for (size_t i = 0; i < width; ++i) out.push_back(i < text.size() ? uint8_t(text[i]) : 0);
}

}  // namespace vz::writers
