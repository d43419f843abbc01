#pragma once
// JPEG pictures through libjpeg, from bytes in memory. The samples are kept as the
// library gives them: height rows of width x channels bytes, each row padded to a
// multiple of 4 bytes.
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vz {

enum class JpegResult {
    ok,
    initFailed,    // the library could not be set up
    headerFailed,  // no readable JPEG header
    badSize,       // a size no layer can take
    dataFailed,    // the compressed image data could not be decoded, or ends early
};

struct JpegPicture {
    int width = 0;
    int height = 0;
    int fileChannels = 0;    // components stored in the file
    int sampleChannels = 0;  // bytes per pixel in `samples`
    std::size_t rowStride = 0;
    // At least width x height x 3 bytes, so that stepping through it in 3-byte groups
    // never leaves it whatever the channel count.
    std::vector<std::uint8_t> samples;
};

JpegResult decodeJpeg(std::span<const std::uint8_t> file, JpegPicture& picture);

}  // namespace vz
