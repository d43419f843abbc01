#pragma once
// The small 4-channel tracker module ("M.K." format) of the sound tests and the sound
// benchmark, written here so that no music file has to be shipped. Speed 5 at tempo 125
// makes a row last 0.1 s, and each pattern breaks after its fifth row, so every order
// lasts exactly 0.5 s: order 0 a high tone (about 1036 Hz), order 1 silence, order 2 a
// low tone (about 259 Hz); then the song starts over.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

namespace vz::test {

constexpr double testSongHighHz = 7093789.2 / (2 * 214) / 16;
constexpr double testSongLowHz = 7093789.2 / (2 * 214) / 64;

inline std::vector<std::uint8_t> makeTestSong() {
    constexpr std::size_t patternsAt = 1084, samplesAt = patternsAt + 3 * 64 * 4 * 4, sampleLength = 1024;
    std::vector<std::uint8_t> out(samplesAt + 2 * sampleLength, 0);  // the title and unused fields stay 0
    for (std::size_t header : {20, 50}) {         // samples 1 and 2: 512 words, volume 64, looped whole
        out[header + 22] = out[header + 28] = 2;  // big-endian word counts
        out[header + 25] = 64;
    }
    const std::uint8_t orders[] = {3, 127, 0, 1, 2};  // count, restart byte, the order list
    std::copy(std::begin(orders), std::end(orders), out.begin() + 950);
    std::copy_n("M.K.", 4, out.begin() + 1080);
    auto cell = [&out](int pattern, int row, int channel, int sample, int period, int effect, int param) {
        const auto at = patternsAt + static_cast<std::size_t>(((pattern * 64 + row) * 4 + channel) * 4);
        out[at] = static_cast<std::uint8_t>((sample & 0xF0) | (period >> 8));
        out[at + 1] = static_cast<std::uint8_t>(period & 0xFF);
        out[at + 2] = static_cast<std::uint8_t>(((sample & 0x0F) << 4) | effect);
        out[at + 3] = static_cast<std::uint8_t>(param);
    };
    for (int pattern = 0; pattern < 3; ++pattern) {
        cell(pattern, 0, 1, 0, 0, 0xF, 5);  // speed 5
        cell(pattern, 4, 3, 0, 0, 0xD, 0);  // next order after this row
    }
    cell(0, 0, 0, 1, 214, 0, 0);                      // the high tone at middle C
    cell(1, 0, 0, 0, 0, 0xC, 0);                      // volume 0: the looping tone stops
    cell(2, 0, 0, 2, 214, 0, 0);                      // the low tone
    for (std::size_t i = 0; i < sampleLength; ++i) {  // square waves of 16 and 64 samples
        out[samplesAt + i] = static_cast<std::uint8_t>(i % 16 < 8 ? 100 : -100);
        out[samplesAt + sampleLength + i] = static_cast<std::uint8_t>(i % 64 < 32 ? 100 : -100);
    }
    return out;
}

}  // namespace vz::test
