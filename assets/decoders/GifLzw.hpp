#pragma once
// The variable-width LZW code stream of GIF image data: codes from minimumCodeSize + 1
// up to 12 bits, least significant bit first, a 4096-entry dictionary that stops
// growing when full, clear code 2^minimum and end code clear + 1.
#include <cstddef>
#include <cstdint>
#include <span>

namespace vz {

enum class LzwStop {
    complete,  // every wanted pixel was written
    endCode,   // the stream's end code came first
    dataEnd,   // the codes ran out before either
    corrupt    // a code that the dictionary cannot hold at this point
};

struct LzwOutcome {
    LzwStop stop;
    std::size_t written;  // pixels produced, counted from the start of `out`
};

// Decodes up to outSize pixels (the caller passes the smaller of the picture's pixel
// count and its buffer) from `codes`, the image's sub-blocks joined together.
LzwOutcome decodeGifLzw(std::span<const std::uint8_t> codes, int minimumCodeSize, std::uint8_t* out,
                        std::size_t outSize);

}  // namespace vz
