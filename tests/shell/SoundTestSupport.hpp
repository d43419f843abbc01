#pragma once
// Shared by the sound tests: components built from a script line, lock-step frames,
// and simple measures of rendered samples.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "script/ComponentContext.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "script/TextParser.hpp"
#include "shell/sound/SoundSystem.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {

// A component made from the parameters of one script line (the keyword already taken).
template <class T>
std::unique_ptr<T> makeFromLine(const std::string& parameters) {
    writeFile("line.txt", parameters + "\n");
    writeFile("empty.txt", "");
    TextParser parser;
    parser.open("line.txt");
    parser.nextLine();
    // The music components keep nothing of the show or the sequencer they are made in.
    Show show;
    Sequencer sequencer("empty.txt", show);
    ComponentContext context("music", parser, show, sequencer);
    return std::make_unique<T>(context);
}

// Ends `count` lock-step frames and returns the samples they rendered.
inline std::vector<std::int16_t> playFrames(int count) {
    std::vector<std::int16_t> all;
    for (int i = 0; i < count; ++i) {
        SoundSystem::instance().endFrame();
        const auto& frame = SoundSystem::instance().lastFrameAudio();
        all.insert(all.end(), frame.begin(), frame.end());
    }
    return all;
}

// Sign changes of the mono mix over interleaved stereo samples: twice the frequency
// of a plain tone per second of samples.
inline int zeroCrossings(const std::vector<std::int16_t>& stereo) {
    int crossings = 0;
    int previous = 0;
    for (std::size_t i = 0; i + 1 < stereo.size(); i += 2) {
        const int mix = stereo[i] + stereo[i + 1];
        if (mix == 0) continue;
        if ((mix > 0) != (previous > 0) && previous != 0) ++crossings;
        previous = mix;
    }
    return crossings;
}

inline int peak(const std::vector<std::int16_t>& samples) {
    int highest = 0;
    for (std::int16_t v : samples) highest = std::max(highest, std::abs(static_cast<int>(v)));
    return highest;
}

// The expected sign changes of a tone of `hz` over `frames` frames at 44100 Hz.
inline double expectedCrossings(double hz, std::size_t frames) { return 2.0 * hz * frames / 44100.0; }

}  // namespace vz::test
