#pragma once
// Plays a scene stream back: the whole file is read and checked at open, and advancing
// to a time applies the recorded changes to one visibility byte per face.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vz {

class StreamPlayer {
public:
    // "loading of streaming : file not found" when the file cannot be read, "loading of
    // streaming : bad file format" for a wrong magic, and, naming the file, for a size
    // or chunk size that does not fit the data or an entry past its object's faces.
    explicit StreamPlayer(const std::string& fileName);

    // Applies every sample after the current one up to and including the first whose
    // time is at or after `time`. A time of 0 or less applies nothing; a time beyond the
    // last sample holds the last state.
    void advance(float time);

    // One byte per face of the object (bit 0: visible), empty when it has no faces.
    const std::vector<std::uint8_t>& visibility(int object) const { return faces_[object]; }
    bool touched(int object) const { return touched_[object]; }

private:
    void check(const std::string& fileName) const;
    void apply(std::size_t frame);

    std::vector<std::uint8_t> data_;  // the frames: the file after its header
    std::size_t current_ = 0;         // the frame applied last
    std::array<std::vector<std::uint8_t>, 32> faces_;
    std::array<bool, 32> touched_{};
};

}  // namespace vz
