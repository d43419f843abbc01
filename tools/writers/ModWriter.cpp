#include "tools/writers/ModWriter.hpp"

#include <algorithm>
#include <stdexcept>

namespace vz::writers {

namespace {
// Periods of octaves 1 to 3 at finetune 0, C first.
constexpr int periods[36] = {856, 808, 762, 720, 678, 640, 604, 570, 538, 508, 480, 453, 428, 404, 381, 360, 339, 320,
                             302, 285, 269, 254, 240, 226, 214, 202, 190, 180, 170, 160, 151, 143, 135, 127, 120, 113};

constexpr const char* noteNames[12] = {"C-", "C#", "D-", "D#", "E-", "F-", "F#", "G-", "G#", "A-", "A#", "B-"};

void check(bool ok, const std::string& what) {
    if (!ok) throw std::invalid_argument("module: " + what);
}

void putSampleHeader(Bytes& out, const ModSample& s) {
    putText(out, s.name, 22);
    put16be(out, unsigned(s.data.size() / 2));
    put8(out, unsigned(s.finetune) & 0x0F);
    put8(out, unsigned(s.volume));
    if (s.loopLength > 0) {
        put16be(out, unsigned(s.loopStart / 2));
        put16be(out, unsigned(s.loopLength / 2));
    } else {
        put16be(out, 0);
        put16be(out, 1);  // the format's "no loop"
    }
}

void checkSample(const ModSample& s) {
    check(s.name.size() <= 22, "sample name longer than 22 characters");
    check(s.data.size() % 2 == 0 && s.data.size() <= 2 * 65535, "sample length odd or too long");
    check(s.volume >= 0 && s.volume <= 64, "sample volume outside 0..64");
    check(s.finetune >= -8 && s.finetune <= 7, "finetune outside -8..7");
    check(s.loopStart % 2 == 0 && s.loopLength % 2 == 0, "loop bounds must be even");
    check(s.loopStart + s.loopLength <= s.data.size(), "loop ends past the sample");
}

void checkCell(const ModCell& c, size_t sampleCount) {
    check(c.sample >= 0 && size_t(c.sample) <= sampleCount, "cell names a missing sample");
    check(c.period >= 0 && c.period < 4096, "period outside 12 bits");
    check(c.effect >= 0 && c.effect < 16 && c.param >= 0 && c.param < 256, "bad effect");
}
}  // namespace

int notePeriod(const std::string& note) {
    if (note.size() == 3 && note[2] >= '1' && note[2] <= '3') {
        for (int i = 0; i < 12; ++i) {
            if (note.compare(0, 2, noteNames[i]) == 0) return periods[(note[2] - '1') * 12 + i];
        }
    }
    throw std::invalid_argument("module: unknown note '" + note + "'");
}

Bytes encodeMod(const ModSong& song) {
    check(song.title.size() <= 20, "title longer than 20 characters");
    check(song.samples.size() <= size_t(modMaxSamples), "more than 31 samples");
    check(!song.orders.empty() && song.orders.size() <= 128, "order list must hold 1..128 entries");
    for (int o : song.orders)
        check(o >= 0 && size_t(o) < song.patterns.size() && o < 128, "order names a missing pattern");
    for (const ModSample& s : song.samples) checkSample(s);
    for (const ModPattern& p : song.patterns)
        for (const ModCell& c : p.cells) checkCell(c, song.samples.size());

    Bytes out;
    putText(out, song.title, 20);
    for (int i = 0; i < modMaxSamples; ++i)
        putSampleHeader(out, size_t(i) < song.samples.size() ? song.samples[size_t(i)] : ModSample{});
    put8(out, unsigned(song.orders.size()));
    put8(out, 127);  // restart byte, conventionally 127 for ProTracker
    for (size_t i = 0; i < 128; ++i) put8(out, i < song.orders.size() ? unsigned(song.orders[i]) : 0);
    putText(out, "M.K.", 4);
    // Readers count the patterns from the highest number in the order list.
    const int patternCount = *std::max_element(song.orders.begin(), song.orders.end()) + 1;
    for (int p = 0; p < patternCount; ++p) {
        for (const ModCell& c : song.patterns[size_t(p)].cells) {
            put8(out, unsigned(c.sample & 0xF0) | unsigned(c.period >> 8));
            put8(out, unsigned(c.period & 0xFF));
            put8(out, unsigned((c.sample & 0x0F) << 4) | unsigned(c.effect));
            put8(out, unsigned(c.param));
        }
    }
    for (const ModSample& s : song.samples)
        for (int8_t v : s.data) put8(out, uint8_t(v));
    return out;
}

}  // namespace vz::writers
