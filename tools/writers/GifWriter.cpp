#include "tools/writers/GifWriter.hpp"

#include <stdexcept>

namespace vz::writers {

namespace {
constexpr unsigned maxCodes = 4096;

// Packs codes least significant bit first into 255-byte sub-blocks.
class CodeStream {
public:
    explicit CodeStream(Bytes& out) : out_(out) {}

    void put(unsigned code, int width) {
        bits_ |= uint32_t(code) << count_;
        count_ += width;
        while (count_ >= 8) {
            pushByte(uint8_t(bits_));
            bits_ >>= 8;
            count_ -= 8;
        }
    }

    void finish() {
        if (count_ > 0) pushByte(uint8_t(bits_));
        flushBlock();
        put8(out_, 0);  // block terminator
    }

private:
    void pushByte(uint8_t b) {
        block_.push_back(b);
        if (block_.size() == 255) flushBlock();
    }
    void flushBlock() {
        if (block_.empty()) return;
        put8(out_, unsigned(block_.size()));
        out_.insert(out_.end(), block_.begin(), block_.end());
        block_.clear();
    }

    Bytes& out_;
    Bytes block_;
    uint32_t bits_ = 0;
    int count_ = 0;
};

// The code width follows the decoder, which learns of each new entry one code late:
// after writing a code that leaves `next` entries defined, the next code is read
// one bit wider once the last defined entry reaches 2^width.
void encodeLzw(Bytes& out, const std::vector<uint8_t>& pixels, int minCodeSize, bool lateClear) {
    const unsigned clearCode = 1u << minCodeSize, endCode = clearCode + 1;
    std::vector<uint16_t> child(size_t(maxCodes) * 256, 0);  // 0: no entry yet
    CodeStream codes(out);
    int width = minCodeSize + 1;
    unsigned next = endCode + 1;
    auto restart = [&] {
        std::fill(child.begin(), child.end(), 0);
        width = minCodeSize + 1;
        next = endCode + 1;
    };
    codes.put(clearCode, width);
    unsigned prefix = pixels.empty() ? endCode : pixels.front();
    for (size_t i = 1; i < pixels.size(); ++i) {
        const uint8_t c = pixels[i];
        const uint16_t known = child[size_t(prefix) * 256 + c];
        if (known != 0) {
            prefix = known;
            continue;
        }
        codes.put(prefix, width);
        const bool wasFull = next == maxCodes;
        if (!wasFull) {
            child[size_t(prefix) * 256 + c] = uint16_t(next++);
            if (next - 1 >= (1u << width) && width < 12) ++width;
        }
        // Cleared as the table fills, or (late) at the first code that finds it full.
        if (next == maxCodes && wasFull == lateClear) {
            codes.put(clearCode, width);
            restart();
        }
        prefix = c;
    }
    if (!pixels.empty()) {
        codes.put(prefix, width);
        // The decoder counts the entry this last code would have made before reading on.
        if (next >= (1u << width) && width < 12) ++width;
    }
    codes.put(endCode, width);
    codes.finish();
}
}  // namespace

Bytes encodeGif(const IndexedPicture& picture, const GifLayout& layout) {
    const int w = picture.width, h = picture.height;
    if (w <= 0 || h <= 0 || w > 65535 || h > 65535) throw std::runtime_error("GIF pictures need sizes within 1..65535");
    int sizeBits = 0;  // the table holds 2^(sizeBits + 1) entries
    while (layout.tableEntries > (2 << sizeBits)) ++sizeBits;
    if (layout.tableEntries != 0 && layout.tableEntries != (2 << sizeBits))
        throw std::runtime_error("a GIF colour table holds a power of two entries");
    if (layout.minimumCodeSize < 2 || layout.minimumCodeSize > 8)
        throw std::runtime_error("the GIF minimum code size is within 2..8");
    Bytes out;
    putText(out, "GIF89a", 6);
    put16le(out, unsigned(layout.screenWidth ? layout.screenWidth : w));
    put16le(out, unsigned(layout.screenHeight ? layout.screenHeight : h));
    put8(out, (layout.tableEntries ? 0x80 : 0) | 0x70 | unsigned(sizeBits));  // table, 8-bit colour resolution
    put8(out, 0);                                                             // background colour index
    put8(out, 0);                                                             // square pixels
    for (int i = 0; i < layout.tableEntries; ++i) {
        const Rgb& c = picture.palette[size_t(i)];
        put8(out, c.r);
        put8(out, c.g);
        put8(out, c.b);
    }
    if (layout.controlExtension) out.insert(out.end(), {0x21, 0xF9, 4, 0, 0, 0, 0, 0});
    put8(out, 0x2C);
    put16le(out, 0);
    put16le(out, 0);
    put16le(out, unsigned(w));
    put16le(out, unsigned(h));
    put8(out, layout.interlaced ? 0x40 : 0);  // no local table
    put8(out, unsigned(layout.minimumCodeSize));
    encodeLzw(out, picture.pixels, layout.minimumCodeSize, layout.lateClear);
    put8(out, 0x3B);
    return out;
}

}  // namespace vz::writers
