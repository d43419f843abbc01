// PCX decoder on arbitrary bytes.
#include <cstddef>
#include <cstdint>

#include "assets/decoders/PcxDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::IndexedPicture picture;
    vz::decodePcx({data, size}, picture);
    return 0;
}
