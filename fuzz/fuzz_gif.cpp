// GIF size query and full read on arbitrary bytes, into a buffer of the screen's size
// as the loaders make it. Screens above a million pixels are left out: they only spend
// the fuzzer's time on clearing big buffers.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "assets/decoders/GifDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::GifScreen screen;
    if (vz::queryGifSize({data, size}, screen) != vz::GifSizeResult::ok) return 0;
    if (std::int64_t{screen.width} * screen.height > 1 << 20) return 0;
    std::vector<std::uint8_t> destination(static_cast<std::size_t>(screen.width) * screen.height);
    vz::GifImage image;
    vz::decodeGif({data, size}, destination.data(), destination.size(), image);
    return 0;
}
