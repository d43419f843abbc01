#pragma once
// Little-endian byte appending and whole-file writing for the encoders.
#include <cstdint>
#include <string>
#include <vector>

namespace vz::assetgen {

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

// Writes the bytes as the whole content of the file; throws std::runtime_error on failure.
void writeFile(const std::string& path, const Bytes& bytes);
void writeFile(const std::string& path, const std::string& text);

}  // namespace vz::assetgen
