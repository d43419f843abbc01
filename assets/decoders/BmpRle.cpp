#include "assets/decoders/BmpRle.hpp"

namespace vz {

namespace {

// Places pixels left to right from a position that escapes move; pixels that fall
// outside the picture are dropped.
class RleCursor {
public:
    RleCursor(const Palette256& table, BmpPicture& picture) : table_(table), picture_(picture) {}

    void put(std::uint8_t index) {
        if (x_ < picture_.width && y_ < picture_.height)
            picture_.pixels[static_cast<std::size_t>((picture_.height - 1 - y_) * picture_.width + x_)] = table_[index];
        ++x_;
    }
    void endLine() {
        x_ = 0;
        ++y_;
    }
    void move(int dx, int dy) {
        x_ += dx;
        y_ += dy;
    }
    bool pastLastRow() const { return y_ >= picture_.height; }

private:
    const Palette256& table_;
    BmpPicture& picture_;
    std::int64_t x_ = 0;
    std::int64_t y_ = 0;  // rows counted from the bottom
};

// The n-th index of a run of packed indices: whole bytes, or nibbles high one first.
std::uint8_t indexAt(const std::uint8_t* bytes, int n, int bitsPerIndex) {
    if (bitsPerIndex == 8) return bytes[n];
    std::uint8_t b = bytes[n >> 1];
    return (n & 1) ? b & 15 : b >> 4;
}

}  // namespace

DecodeStatus decodeBmpRle(ByteReader& reader, int bitsPerIndex, const Palette256& table, BmpPicture& picture) {
    RleCursor cursor(table, picture);
    for (;;) {
        std::uint8_t count, value;
        // A stream without its end-of-bitmap mark is accepted once every row is done.
        if (!reader.u8(count) || !reader.u8(value))
            return cursor.pastLastRow() ? DecodeStatus::ok : DecodeStatus::truncated;
        if (count > 0) {
            // An encoded run. In RLE4 the two nibbles alternate, high one first, so an odd
            // run ends on a high nibble and the next run starts afresh.
            for (int n = 0; n < count; ++n) cursor.put(bitsPerIndex == 8 ? value : indexAt(&value, n & 1, 4));
            continue;
        }
        switch (value) {
        case 0: cursor.endLine(); break;
        case 1: return DecodeStatus::ok;
        case 2: {
            std::uint8_t dx, dy;
            if (!reader.u8(dx) || !reader.u8(dy)) return DecodeStatus::truncated;
            cursor.move(dx, dy);
            break;
        }
        default: {
            // `value` literal indices, their bytes padded to an even count.
            std::size_t bytes = bitsPerIndex == 8 ? value : (value + 1u) / 2;
            std::span<const std::uint8_t> literal;
            if (!reader.take(bytes + (bytes & 1), literal)) return DecodeStatus::truncated;
            for (int n = 0; n < value; ++n) cursor.put(indexAt(literal.data(), n, bitsPerIndex));
        }
        }
    }
}

}  // namespace vz
