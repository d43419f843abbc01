// BMP header and pixel decoding on arbitrary bytes. Pictures above a million pixels are
// left out: they only spend the fuzzer's time on clearing big buffers.
#include <cstddef>
#include <cstdint>

#include "assets/decoders/BmpDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::BmpHeader header;
    if (vz::readBmpHeader({data, size}, header) != vz::DecodeStatus::ok) return 0;
    if (std::int64_t{header.width} * header.height > 1 << 20) return 0;
    vz::BmpPicture picture;
    vz::decodeBmpPixels({data, size}, header, picture);
    return 0;
}
