#pragma once
// Four-channel ProTracker modules ("M.K."): 31 sample slots, 64-row patterns.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/writers/Bytes.hpp"

namespace vz::writers {

constexpr int modChannels = 4;
constexpr int modRows = 64;
constexpr int modMaxSamples = 31;

// Signed 8-bit sample. Lengths and loop bounds are in bytes and must be even (the
// format stores them in 16-bit words). loopLength 0 means the sample plays once.
struct ModSample {
    std::string name;
    std::vector<int8_t> data;
    int volume = 64;   // 0..64
    int finetune = 0;  // -8..7
    size_t loopStart = 0;
    size_t loopLength = 0;
};

// One note slot. sample 0 keeps the channel's sample, period 0 plays no new note,
// effect and param are the usual command nibble and byte.
struct ModCell {
    int sample = 0;
    int period = 0;
    int effect = 0;
    int param = 0;
};

struct ModPattern {
    std::array<ModCell, modRows * modChannels> cells{};
    ModCell& at(int row, int channel) { return cells[size_t(row * modChannels + channel)]; }
    const ModCell& at(int row, int channel) const { return cells[size_t(row * modChannels + channel)]; }
};

struct ModSong {
    std::string title;
    std::vector<ModSample> samples;  // sample number n is samples[n - 1]
    std::vector<ModPattern> patterns;
    std::vector<int> orders;  // pattern numbers in play order, 1..128 of them
};

// Amiga period of a note written as in trackers: "C-1" .. "B-3", sharps as "C#2".
// Throws std::invalid_argument for anything else.
int notePeriod(const std::string& note);

// Throws std::invalid_argument when the song breaks a limit of the format.
Bytes encodeMod(const ModSong& song);

}  // namespace vz::writers
