#pragma once
// The alpha byte (bits 24-31) of 32-bit pixels set on its own, the colour bytes kept.
#include <cstddef>
#include <cstdint>

namespace vz {

// dst[i] takes alpha[i] as its alpha byte.
void copyAlphaBytes(std::uint32_t* dst, const std::uint8_t* alpha, std::size_t n);

// Every dst[i] takes `alpha` as its alpha byte.
void fillAlphaBytes(std::uint32_t* dst, std::uint8_t alpha, std::size_t n);

}  // namespace vz
