#pragma once
// The scene stream file: which faces of which objects are visible at each sampled
// moment, as changes from one sample to the next. Little-endian throughout.
//
//   header   magic 12321, total file size, face count of objects 0 .. 31   (136 bytes)
//   frames   id 69, size (12 + its object chunks), time (float), object chunks
//   object   id 16, size (12 + 2 n), object index, n 16-bit entries: e < 16384 flips the
//            visible bit of face e, e >= 16384 the second flag of face e - 16384
//
// A recording starts with an empty frame at time 0, so a fresh file is 148 bytes.
#include <cstdint>
#include <cstring>
#include <vector>

namespace vz::stream {

constexpr std::int32_t magic = 12321;
constexpr std::int32_t frameId = 69;
constexpr std::int32_t objectId = 16;
constexpr int maxObjects = 32;
constexpr int headerSize = 8 + 4 * maxObjects;  // 136
constexpr int chunkHeaderSize = 12;
constexpr int secondChannel = 16384;     // entries from here on name the second flag
constexpr int maxFaces = secondChannel;  // faces an entry of the first channel can name

// Bits of a face's visibility byte.
constexpr std::uint8_t visibleBit = 1;    // player: drawn; recorder: owns a pixel now
constexpr std::uint8_t secondBit = 2;     // the second flag
constexpr std::uint8_t writtenBit = 4;    // recorder: the state last written
constexpr std::uint8_t everSeenBit = 64;  // recorder: owned a pixel at least once

inline void put32(std::vector<std::uint8_t>& out, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) out.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}
inline void put16(std::vector<std::uint8_t>& out, std::uint16_t v) {
    out.push_back(static_cast<std::uint8_t>(v));
    out.push_back(static_cast<std::uint8_t>(v >> 8));
}
inline void set32(std::vector<std::uint8_t>& out, std::size_t at, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) out[at + i] = static_cast<std::uint8_t>(v >> (8 * i));
}
inline std::uint32_t get32(const std::uint8_t* p) {
    return p[0] | (std::uint32_t(p[1]) << 8) | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[3]) << 24);
}
inline std::uint16_t get16(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | (p[1] << 8)); }
inline float getFloat(const std::uint8_t* p) {
    const std::uint32_t bits = get32(p);
    float f;
    std::memcpy(&f, &bits, 4);
    return f;
}
inline std::uint32_t floatBits(float f) {
    std::uint32_t bits;
    std::memcpy(&bits, &f, 4);
    return bits;
}

}  // namespace vz::stream
