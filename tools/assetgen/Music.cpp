#include "tools/assetgen/Music.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>
#include <stdexcept>

#include "tools/assetgen/FixedRandom.hpp"
#include "tools/assetgen/Shapes.hpp"

namespace vz::assetgen {

namespace {
// Sample rate of a sample played at C-3 (period 214) on a PAL machine.
constexpr double rateC3 = 3546895.0 / 214.0;

enum Instrument { kick = 1, snare, hat, bass, lead, pad };
enum Channel { drums = 0, hats = 1, bassline = 2, melody = 3 };

int8_t toSample(double v) { return int8_t(std::lround(std::clamp(v, -1.0, 1.0) * 127.0)); }

// One-shot samples start with a silent word: old players repeat the first word
// of a sample that has no loop.
ModSample oneShot(const std::string& name, std::vector<int8_t> data, int volume) {
    data[0] = data[1] = 0;
    if (data.size() % 2) data.push_back(0);
    return {name, std::move(data), volume, 0, 0, 0};
}

ModSample makeKick() {
    std::vector<int8_t> d(4800);
    double phase = 0;
    for (size_t i = 0; i < d.size(); ++i) {
        const double t = double(i) / rateC3;
        phase += 2 * pi * (45.0 + 110.0 * std::exp(-t * 25.0)) / rateC3;
        d[i] = toSample(std::sin(phase) * std::exp(-t * 9.0) * 1.2);
    }
    return oneShot("kick", std::move(d), 64);
}

ModSample makeSnare() {
    FixedRandom random(0x5A17E);
    std::vector<int8_t> d(3000);
    for (size_t i = 0; i < d.size(); ++i) {
        const double t = double(i) / rateC3;
        const double noise = random.signedUnit() * std::exp(-t * 22.0) * 0.8;
        const double body = std::sin(2 * pi * 185.0 * t) * std::exp(-t * 30.0) * 0.5;
        d[i] = toSample(noise + body);
    }
    return oneShot("snare", std::move(d), 56);
}

ModSample makeHat() {
    FixedRandom random(0x4A7);
    std::vector<int8_t> d(800);
    double previous = 0;
    for (size_t i = 0; i < d.size(); ++i) {
        const double t = double(i) / rateC3;
        const double noise = random.signedUnit();
        d[i] = toSample((noise - previous) * 0.5 * std::exp(-t * 70.0));  // differencing keeps the highs
        previous = noise;
    }
    return oneShot("hihat", std::move(d), 40);
}

// A plucked saw: 64 samples per cycle, its upper harmonics dying faster than the body.
ModSample makeBass() {
    constexpr int cycle = 64, cycles = 40;
    std::vector<int8_t> d(cycle * cycles);
    for (size_t i = 0; i < d.size(); ++i) {
        const double x = double(i % cycle) / cycle, c = double(i) / cycle;
        const double bright = std::exp(-c / 8.0);
        double v = 0;
        for (int k = 1; k <= 8; ++k) v += std::sin(2 * pi * k * x) / k * std::pow(bright, k - 1);
        d[i] = toSample(v * 0.7 * std::exp(-c / 22.0));
    }
    return oneShot("bass", std::move(d), 64);
}

// A looped single cycle from odd (square) or all (saw) harmonics.
ModSample makeLooped(const std::string& name, int cycle, int harmonics, bool oddOnly, int volume) {
    std::vector<int8_t> d(size_t(cycle) * 2);  // two cycles: a loop of one is too short for some players
    for (size_t i = 0; i < d.size(); ++i) {
        const double x = double(i % size_t(cycle)) / cycle;
        double v = 0;
        for (int k = 1; k <= harmonics; k += oddOnly ? 2 : 1) v += std::sin(2 * pi * k * x) / k;
        d[i] = toSample(v * 0.75);
    }
    const size_t length = d.size();
    return {name, std::move(d), volume, 0, 0, length};
}

void setCell(ModPattern& p, int row, int channel, ModCell cell) {
    ModCell& c = p.at(row, channel);
    if (cell.period) {
        c.period = cell.period;
        c.sample = cell.sample;
    }
    if (cell.effect || cell.param) {
        if (c.effect || c.param) throw std::logic_error("two effects in one cell");
        c.effect = cell.effect;
        c.param = cell.param;
    }
}

// Notes, one token per `rowsPerToken` rows: "A-2" plays, "---" holds, "^^^" silences.
void placeLine(ModPattern& p, int channel, int sample, const std::string& line, int rowsPerToken, int row = 0) {
    std::istringstream tokens(line);
    for (std::string t; tokens >> t; row += rowsPerToken) {
        if (t == "---") continue;
        if (t == "^^^")
            setCell(p, row, channel, {0, 0, 0xC, 0});
        else
            setCell(p, row, channel, {sample, notePeriod(t), 0, 0});
    }
}

// Drum hits, one character per row, repeated over the given bars:
// K kick, S snare, s soft snare, H hat, h soft hat, "." nothing.
void placeDrums(ModPattern& p, int channel, const std::string& bar, int firstBar = 0, int bars = 4) {
    const int c3 = notePeriod("C-3");
    for (int b = firstBar; b < firstBar + bars; ++b) {
        for (int i = 0; i < 16; ++i) {
            const int row = b * 16 + i;
            switch (bar[size_t(i)]) {
            case 'K': setCell(p, row, channel, {kick, c3, 0, 0}); break;
            case 'S': setCell(p, row, channel, {snare, c3, 0, 0}); break;
            case 's': setCell(p, row, channel, {snare, c3, 0xC, 0x20}); break;
            case 'H': setCell(p, row, channel, {hat, c3, 0, 0}); break;
            case 'h': setCell(p, row, channel, {hat, c3, 0xC, 0x18}); break;
            default: break;
            }
        }
    }
}

// A held pad note arpeggiated over one bar (0xy: root, +x and +y semitones).
void placeArpBar(ModPattern& p, int bar, const std::string& root, int chord) {
    setCell(p, bar * 16, melody, {pad, notePeriod(root), 0, chord});
    for (int i = 1; i < 16; ++i) setCell(p, bar * 16 + i, melody, {0, 0, 0, chord});
}

struct Chord {
    const char* bassRoot;
    const char* bassOctave;
    const char* padRoot;
    int arp;
};
constexpr int minorArp = 0x37, majorArp = 0x47;
const Chord am{"A-1", "A-2", "A-2", minorArp}, f{"F-1", "F-2", "F-2", majorArp}, c{"C-2", "C-3", "C-2", majorArp},
    g{"G-1", "G-2", "G-2", majorArp}, em{"E-1", "E-2", "E-2", minorArp}, dm{"D-1", "D-2", "D-2", minorArp},
    e{"E-1", "E-2", "E-2", majorArp};

using Progression = std::array<Chord, 4>;

// Bass figures over eighth notes: R root, O octave, "-" hold.
void placeBass(ModPattern& p, const Progression& chords, const std::string& figure) {
    for (int b = 0; b < 4; ++b) {
        std::string line;
        for (char ch : figure) {
            line += ch == 'R' ? chords[size_t(b)].bassRoot : ch == 'O' ? chords[size_t(b)].bassOctave : "---";
            line += ' ';
        }
        placeLine(p, bassline, bass, line, 2, b * 16);
    }
}

void placeArps(ModPattern& p, const Progression& chords) {
    for (int b = 0; b < 4; ++b) placeArpBar(p, b, chords[size_t(b)].padRoot, chords[size_t(b)].arp);
}

ModPattern makePattern(int number) {
    const Progression firstHalf{am, f, c, g}, secondHalf{f, g, em, am}, breakdown{dm, am, dm, e};
    ModPattern p;
    switch (number) {
    case 0:  // intro: pulse, bass and pad
        placeDrums(p, drums, "K.......K.......");
        placeBass(p, firstHalf, "R-R-R-R-");
        placeArps(p, firstHalf);
        break;
    case 1:  // the groove starts
        placeDrums(p, drums, "K...S...K...S...");
        placeDrums(p, hats, "H.h.H.h.H.h.H.h.");
        placeBass(p, firstHalf, "RROROROO");
        placeArps(p, firstHalf);
        break;
    case 2:  // first theme
        placeDrums(p, drums, "K...S...K.K.S...");
        placeDrums(p, hats, "H.h.H.h.H.h.H.h.");
        placeBass(p, firstHalf, "RROROROO");
        placeLine(p, melody, lead,
                  "A-2 --- C-3 E-3 D-3 C-3 B-2 C-3  A-2 --- --- F-2 A-2 C-3 A-2 F-2 "
                  "G-2 --- E-2 G-2 C-3 --- E-3 D-3  B-2 --- D-3 --- G-2 --- ^^^ ---",
                  2);
        break;
    case 3:  // first theme, answered
        placeDrums(p, drums, "K...S...K.K.S..K");
        placeDrums(p, hats, "HhHhHhHhHhHhHhHh");
        placeBass(p, firstHalf, "RROROROO");
        placeLine(p, melody, lead,
                  "E-3 --- D-3 C-3 B-2 C-3 A-2 ---  C-3 --- A-2 --- F-2 --- A-2 C-3 "
                  "E-3 --- G-3 --- E-3 D-3 C-3 ---  D-3 --- B-2 --- G-2 --- ^^^ ---",
                  2);
        break;
    case 4:  // second half: new progression and theme
        placeDrums(p, drums, "K..KS..KK..KS.K.");
        placeDrums(p, hats, "H.HhH.HhH.HhH.Hh");
        placeBass(p, secondHalf, "R-ROR-RO");
        placeLine(p, melody, lead,
                  "C-3 --- A-2 --- F-2 A-2 C-3 F-3  D-3 --- B-2 --- G-2 B-2 D-3 G-3 "
                  "E-3 --- --- B-2 G-2 --- E-2 G-2  A-2 --- C-3 --- E-3 --- ^^^ ---",
                  2);
        break;
    case 5:  // breakdown, with a snare roll into the climax
        placeDrums(p, hats, "H...H...H...H...");
        placeDrums(p, drums, "S.s.S.s.SsSsSSSS", 3, 1);
        placeBass(p, breakdown, "R-------");
        placeArps(p, breakdown);
        break;
    case 6:  // climax: second theme an octave up
        placeDrums(p, drums, "K...S...K.K.S...");
        placeDrums(p, hats, "HhHhHhHhHhHhHhHh");
        placeBass(p, secondHalf, "RROROROO");
        placeLine(p, melody, lead,
                  "F-3 E-3 C-3 A-2 C-3 --- F-3 A-3  G-3 F-3 D-3 B-2 D-3 --- G-3 B-3 "
                  "G-3 --- E-3 --- B-2 --- E-3 G-3  A-3 --- --- --- E-3 --- C-3 ---",
                  2);
        break;
    case 7: {  // outro: everything fades on A minor
        placeDrums(p, drums, "K...K...K...K...", 0, 2);
        placeDrums(p, hats, "H.h.H.h.H.h.H.h.", 0, 2);
        placeDrums(p, drums, "K...............", 2, 1);
        const int volumes[4] = {0x30, 0x24, 0x18, 0x0C};
        for (int b = 0; b < 4; ++b)
            for (int beat = 0; beat < 4; ++beat)
                setCell(p, b * 16 + beat * 4, bassline, {bass, notePeriod("A-1"), 0xC, volumes[b]});
        const char* bells[4] = {"A-2", "C-3", "E-3", "A-3"};
        for (int b = 0; b < 4; ++b) {
            setCell(p, b * 16, melody, {lead, notePeriod(bells[b]), 0, 0});
            for (int i = 1; i < 16; ++i) setCell(p, b * 16 + i, melody, {0, 0, 0xA, 0x01});
        }
        break;
    }
    default: throw std::logic_error("no such pattern");
    }
    setCell(p, 0, drums, {0, 0, 0xF, songSpeed});
    setCell(p, 0, hats, {0, 0, 0xF, songTempo});
    return p;
}
}  // namespace

ModSong composeSampleSong() {
    ModSong song;
    song.title = "vzplayer sample";
    song.samples = {makeKick(),
                    makeSnare(),
                    makeHat(),
                    makeBass(),
                    makeLooped("lead", 32, 7, true, 44),
                    makeLooped("pad", 64, 6, false, 36)};
    for (int i = 0; i < 8; ++i) song.patterns.push_back(makePattern(i));
    song.orders = {0, 1, 2, 3, 4, 5, 6, 7};
    return song;
}

}  // namespace vz::assetgen
