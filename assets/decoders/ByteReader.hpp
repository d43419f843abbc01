#pragma once
// A cursor over bytes already in memory. Every read says whether the data held it, so a
// decoder can never run past the end of a file, whatever the file claims about itself.
#include <cstddef>
#include <cstdint>
#include <span>

namespace vz {

class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> data) : data_(data) {}

    std::size_t size() const { return data_.size(); }
    std::size_t position() const { return position_; }
    std::size_t remaining() const { return data_.size() - position_; }
    // The bytes not read yet.
    std::span<const std::uint8_t> rest() const { return data_.subspan(position_); }

    bool u8(std::uint8_t& value) {
        if (remaining() < 1) return false;
        value = data_[position_++];
        return true;
    }
    bool le16(std::uint16_t& value) {
        if (remaining() < 2) return false;
        value = static_cast<std::uint16_t>(data_[position_] | data_[position_ + 1] << 8);
        position_ += 2;
        return true;
    }
    bool le32(std::uint32_t& value) {
        if (remaining() < 4) return false;
        value = static_cast<std::uint32_t>(data_[position_]) | static_cast<std::uint32_t>(data_[position_ + 1]) << 8 |
                static_cast<std::uint32_t>(data_[position_ + 2]) << 16 |
                static_cast<std::uint32_t>(data_[position_ + 3]) << 24;
        position_ += 4;
        return true;
    }
    // A view of the next `count` bytes, consumed.
    bool take(std::size_t count, std::span<const std::uint8_t>& bytes) {
        if (remaining() < count) return false;
        bytes = data_.subspan(position_, count);
        position_ += count;
        return true;
    }
    bool skip(std::size_t count) {
        if (remaining() < count) return false;
        position_ += count;
        return true;
    }
    // Moves to an absolute position; the end itself is a valid place to stand.
    bool seek(std::int64_t target) {
        if (target < 0 || static_cast<std::uint64_t>(target) > data_.size()) return false;
        position_ = static_cast<std::size_t>(target);
        return true;
    }
    bool seekRelative(std::int64_t offset) { return seek(static_cast<std::int64_t>(position_) + offset); }

private:
    std::span<const std::uint8_t> data_;
    std::size_t position_ = 0;
};

}  // namespace vz
