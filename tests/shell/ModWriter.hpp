#pragma once
// Writes small 4-channel tracker modules ("M.K." format) for the sound tests and the
// sound benchmark, so that no music file has to be shipped.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vz::test {

struct ModCell {
    int sample = 0;  // 1-31, 0: none
    int period = 0;  // Amiga period, 0: no note
    int effect = 0;  // 0x0-0xF
    int param = 0;   // 0x00-0xFF
};

class ModWriter {
public:
    static constexpr int channels = 4;
    static constexpr int rows = 64;

    // A sample looping over its whole length; returns its number (1-31).
    int addLoopedSample(const std::vector<std::int8_t>& data) {
        samples_.push_back(data);
        return static_cast<int>(samples_.size());
    }
    // Sets a cell, adding empty patterns up to `pattern`.
    void set(int pattern, int row, int channel, ModCell cell) {
        if (pattern >= static_cast<int>(patterns_.size())) patterns_.resize(static_cast<std::size_t>(pattern) + 1);
        patterns_[static_cast<std::size_t>(pattern)].at(static_cast<std::size_t>(row * channels + channel)) = cell;
    }
    void setOrders(std::vector<int> orders) { orders_ = std::move(orders); }

    std::vector<std::uint8_t> bytes() const {
        std::vector<std::uint8_t> out(20, 0);  // title
        for (int i = 0; i < 31; ++i) {
            std::vector<std::uint8_t> header(30, 0);
            if (i < static_cast<int>(samples_.size())) {
                const auto words = static_cast<int>(samples_[i].size() / 2);
                put16(header, 22, words);  // length
                header[25] = 64;           // volume
                put16(header, 26, 0);      // loop start
                put16(header, 28, words);  // loop length
            }
            out.insert(out.end(), header.begin(), header.end());
        }
        out.push_back(static_cast<std::uint8_t>(orders_.size()));
        out.push_back(127);
        for (int i = 0; i < 128; ++i)
            out.push_back(static_cast<std::uint8_t>(i < static_cast<int>(orders_.size()) ? orders_[i] : 0));
        for (char c : std::string("M.K.")) out.push_back(static_cast<std::uint8_t>(c));
        for (const auto& pattern : patterns_)
            for (const ModCell& cell : pattern) {
                out.push_back(static_cast<std::uint8_t>((cell.sample & 0xF0) | ((cell.period >> 8) & 0x0F)));
                out.push_back(static_cast<std::uint8_t>(cell.period & 0xFF));
                out.push_back(static_cast<std::uint8_t>(((cell.sample & 0x0F) << 4) | (cell.effect & 0x0F)));
                out.push_back(static_cast<std::uint8_t>(cell.param));
            }
        for (const auto& sample : samples_)
            for (std::int8_t v : sample) out.push_back(static_cast<std::uint8_t>(v));
        return out;
    }

private:
    static void put16(std::vector<std::uint8_t>& bytes, std::size_t at, int value) {
        bytes[at] = static_cast<std::uint8_t>(value >> 8);  // big-endian words
        bytes[at + 1] = static_cast<std::uint8_t>(value);
    }

    std::vector<std::vector<std::int8_t>> samples_;
    std::vector<std::array<ModCell, rows * channels>> patterns_;
    std::vector<int> orders_;
};

// A square wave of `period` samples, `length` samples long (even).
inline std::vector<std::int8_t> squareWave(int length, int period, int amplitude) {
    std::vector<std::int8_t> wave(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i)
        wave[static_cast<std::size_t>(i)] = static_cast<std::int8_t>((i % period) < period / 2 ? amplitude : -amplitude);
    return wave;
}

// The test song. Speed 5 at tempo 125 makes a row last 0.1 s, and each pattern breaks
// after its fifth row, so every order lasts exactly 0.5 s:
//   order 0: a high tone (about 1036 Hz), order 1: silence, order 2: a low tone
//   (about 259 Hz); then the song starts over.
constexpr double testSongOrderSeconds = 0.5;
constexpr double testSongHighHz = 7093789.2 / (2 * 214) / 16;
constexpr double testSongLowHz = 7093789.2 / (2 * 214) / 64;

inline std::vector<std::uint8_t> makeTestSong() {
    constexpr int middleC = 214;
    ModWriter mod;
    const int high = mod.addLoopedSample(squareWave(1024, 16, 100));
    const int low = mod.addLoopedSample(squareWave(1024, 64, 100));
    for (int pattern = 0; pattern < 3; ++pattern) {
        mod.set(pattern, 0, 1, {0, 0, 0xF, 5});  // speed 5
        mod.set(pattern, 4, 3, {0, 0, 0xD, 0});  // next order after this row
    }
    mod.set(0, 0, 0, {high, middleC, 0, 0});
    mod.set(1, 0, 0, {0, 0, 0xC, 0});  // volume 0: the looping tone stops
    mod.set(2, 0, 0, {low, middleC, 0, 0});
    mod.setOrders({0, 1, 2});
    return mod.bytes();
}

}  // namespace vz::test
