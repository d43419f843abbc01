#pragma once
// The small tracker module of the sound tests and the sound benchmark. Speed 5 at tempo
// 125 makes a row last 0.1 s, and each pattern breaks after its fifth row, so every order
// lasts exactly 0.5 s: order 0 a high tone (about 1036 Hz), order 1 silence, order 2 a
// low tone (about 259 Hz); then the song starts over.
#include "tools/writers/ModWriter.hpp"

namespace vz::test {

constexpr double testSongHighHz = 7093789.2 / (2 * 214) / 16;
constexpr double testSongLowHz = 7093789.2 / (2 * 214) / 64;

inline writers::Bytes makeTestSong() {
    writers::ModSong song;
    for (int period : {16, 64}) {  // looped square waves of 16 and 64 samples
        writers::ModSample& wave = song.samples.emplace_back();
        for (int i = 0; i < 1024; ++i) wave.data.push_back(i % period < period / 2 ? 100 : -100);
        wave.loopLength = 1024;
    }
    song.patterns.resize(3);
    song.orders = {0, 1, 2};
    for (writers::ModPattern& pattern : song.patterns) {
        pattern.at(0, 1) = {0, 0, 0xF, 5};  // speed 5
        pattern.at(4, 3) = {0, 0, 0xD, 0};  // next order after this row
    }
    song.patterns[0].at(0, 0) = {1, 214, 0, 0};  // the high tone at middle C
    song.patterns[1].at(0, 0) = {0, 0, 0xC, 0};  // volume 0: the looping tone stops
    song.patterns[2].at(0, 0) = {2, 214, 0, 0};  // the low tone
    return writers::encodeMod(song);
}

}  // namespace vz::test
