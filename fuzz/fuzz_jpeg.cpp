// JPEG decoding through libjpeg on arbitrary bytes, then the 3-byte stepping the loader
// applies, which must stay inside the samples.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "assets/PictureConversions.hpp"
#include "assets/decoders/JpegDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::JpegPicture picture;
    if (vz::decodeJpeg({data, size}, picture) != vz::JpegResult::ok) return 0;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(picture.width) * picture.height);
    vz::pixelsFromByteTriples(picture.samples.data(), pixels.size(), pixels.data());
    return 0;
}
