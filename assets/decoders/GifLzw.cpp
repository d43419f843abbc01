#include "assets/decoders/GifLzw.hpp"

#include <array>
#include <memory>

namespace vz {

namespace {

constexpr int maxCodeBits = 12;
constexpr unsigned dictionarySize = 1u << maxCodeBits;

// Each entry is its prefix entry plus one byte; lengths and first bytes are kept so a
// string can be written in place, back to front, without an output stack.
struct Dictionary {
    std::array<std::uint16_t, dictionarySize> prefix;
    std::array<std::uint8_t, dictionarySize> suffix;
    std::array<std::uint8_t, dictionarySize> first;
    std::array<std::uint16_t, dictionarySize> length;
};

class CodeReader {
public:
    explicit CodeReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool next(int width, unsigned& code) {
        while (bitCount_ < width) {
            if (position_ == bytes_.size()) return false;
            bits_ |= static_cast<std::uint64_t>(bytes_[position_++]) << bitCount_;
            bitCount_ += 8;
        }
        code = static_cast<unsigned>(bits_ & ((1u << width) - 1));
        bits_ >>= width;
        bitCount_ -= width;
        return true;
    }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    std::uint64_t bits_ = 0;
    int bitCount_ = 0;
};

// Writes the string of `code` at out[at..at+length), dropping bytes from `limit` on.
void writeString(const Dictionary& d, unsigned code, std::uint8_t* out, std::size_t at, std::size_t limit) {
    std::size_t end = at + d.length[code];
    if (end <= limit) {
        std::uint8_t* p = out + end;
        for (unsigned k = code, n = d.length[code]; n > 0; --n, k = d.prefix[k]) *--p = d.suffix[k];
        return;
    }
    std::size_t p = end;
    for (unsigned k = code, n = d.length[code]; n > 0; --n, k = d.prefix[k])
        if (--p < limit) out[p] = d.suffix[k];
}

}  // namespace

LzwOutcome decodeGifLzw(std::span<const std::uint8_t> codes, int minimumCodeSize, std::uint8_t* out,
                        std::size_t outSize) {
    auto d = std::make_unique<Dictionary>();
    const unsigned clear = 1u << minimumCodeSize;
    const unsigned endCode = clear + 1;
    for (unsigned i = 0; i < clear; ++i) {
        d->suffix[i] = d->first[i] = static_cast<std::uint8_t>(i);
        d->length[i] = 1;
    }
    CodeReader reader(codes);
    int width = minimumCodeSize + 1;
    unsigned next = clear + 2;
    unsigned previous = dictionarySize;  // none since the last clear
    std::size_t written = 0;

    while (written < outSize) {
        unsigned code;
        if (!reader.next(width, code)) return {LzwStop::dataEnd, written};
        if (code == clear) {
            width = minimumCodeSize + 1;
            next = clear + 2;
            previous = dictionarySize;
            continue;
        }
        if (code == endCode) return {LzwStop::endCode, written};
        if (previous == dictionarySize) {
            if (code >= clear) return {LzwStop::corrupt, written};
        } else if (next < dictionarySize) {
            // The new entry is the previous string plus the first byte of this one; when
            // the code is the entry being made, that byte is the previous string's first.
            if (code > next) return {LzwStop::corrupt, written};
            d->prefix[next] = static_cast<std::uint16_t>(previous);
            d->first[next] = d->first[previous];
            d->suffix[next] = code == next ? d->first[previous] : d->first[code];
            d->length[next] = static_cast<std::uint16_t>(d->length[previous] + 1);
            ++next;
            if (next == (1u << width) && width < maxCodeBits) ++width;
        } else if (code >= next) {
            return {LzwStop::corrupt, written};
        }
        writeString(*d, code, out, written, outSize);
        written += d->length[code];
        previous = code;
    }
    return {LzwStop::complete, outSize};
}

}  // namespace vz
