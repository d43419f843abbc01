#include "effects/layers/AlphaBytes.hpp"

namespace vz {

namespace {

inline std::uint32_t withAlpha(std::uint32_t pixel, std::uint8_t alpha) {
    return (pixel & 0x00FFFFFFu) | std::uint32_t{alpha} << 24;
}

}  // namespace

void copyAlphaBytes(std::uint32_t* dst, const std::uint8_t* alpha, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) dst[i] = withAlpha(dst[i], alpha[i]);
}

void fillAlphaBytes(std::uint32_t* dst, std::uint8_t alpha, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) dst[i] = withAlpha(dst[i], alpha);
}

}  // namespace vz
