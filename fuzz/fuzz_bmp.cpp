// BMP header and pixel decoding on arbitrary bytes.
#include <cstddef>
#include <cstdint>

#include "assets/decoders/BmpDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::BmpPicture picture;
    vz::decodeBmp({data, size}, picture);
    return 0;
}
