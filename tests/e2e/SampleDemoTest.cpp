// The bundled sample demo played headless to its end, as `make run` plays it without a
// display: exit status, the whole log, chosen frames, the music, and the same show from
// a zip archive. Expected logs and frame checksums live in tests/e2e/expected/; after an
// intended change of the demo, run the test with VZ_UPDATE_EXPECTED=1 to rewrite them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"
#include "support/ZipWriter.hpp"

namespace vz::test {
namespace {

namespace fs = std::filesystem;

const fs::path sampleDir = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";
const fs::path expectedDir = fs::path(VZ_SOURCE_DIR) / "tests" / "e2e" / "expected";
const std::vector<double> shotTimes{1,    6,    12,   16.5, 18.5, 21,   25,    29,    33,   37,  39.5, 41.5,
                                    43.5, 45,   48,   52,   56,   59.5, 61.5,  64.5,  67.5, 69.4, 70.1, 70.9,
                                    71.6, 72.5, 73.25, 73.75, 74.5, 76.5, 79.5, 82.5, 85,   87,   89,
                                    91,   93.5, 95,   97,   99.5, 101,  104,  106,  109,  112,  114,  117};

// The arguments of a headless show of `demo` at 25 frames per second, `extra` options,
// and a shot at each time written to PREFIX TIME.png.
std::vector<std::string> showArguments(const std::string& demo, const std::string& prefix,
                                       const std::vector<std::string>& extra = {}) {
    std::vector<std::string> args{"--headless", "--fps", "25"};
    args.insert(args.end(), extra.begin(), extra.end());
    for (double t : shotTimes) {
        std::ostringstream shot;
        shot << t << "=" << prefix << t << ".png";
        args.insert(args.end(), {"--shot", shot.str()});
    }
    args.push_back(demo);
    return args;
}

// "time checksum" per shot.
std::vector<std::string> frameChecksums(const std::string& prefix) {
    std::vector<std::string> lines;
    for (double t : shotTimes) {
        std::ostringstream file, line;
        file << prefix << t << ".png";
        line << t << " " << std::hex << checksum(readPng(file.str()));
        lines.push_back(line.str());
    }
    return lines;
}

// Compares with the expected file, line by line, or rewrites it when VZ_UPDATE_EXPECTED is set.
void expectSameAs(const std::vector<std::string>& actual, const std::string& expectedFile) {
    fs::path path = expectedDir / expectedFile;
    if (std::getenv("VZ_UPDATE_EXPECTED")) {
        std::string text;
        for (const auto& line : actual) text += line + "\n";
        fs::create_directories(expectedDir);
        writeFile(path, text);
        return;
    }
    ASSERT_TRUE(fs::exists(path)) << path;
    std::vector<std::string> want = readLines(path);
    ASSERT_EQ(actual.size(), want.size()) << expectedFile;
    for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_EQ(actual[i], want[i]) << expectedFile << " line " << i + 1;
}

// The 16-bit samples of a WAV file written by the player (44-byte header); its format
// fields are checked on the way: 2 channels, 44100 Hz, 16 bits.
std::vector<std::int16_t> wavSamples(const std::string& path) {
    const std::string data = readFile(path);
    auto le = [&](std::size_t at, int size) {
        std::uint32_t v = 0;
        for (int i = size - 1; i >= 0; --i) v = v << 8 | static_cast<std::uint8_t>(data[at + i]);
        return v;
    };
    if (data.size() < 44 || data.substr(0, 4) + data.substr(8, 4) != "RIFFWAVE") return {};
    EXPECT_EQ(std::vector<std::uint32_t>({le(22, 2), le(24, 4), le(34, 2)}),
              std::vector<std::uint32_t>({2, 44100, 16}));
    std::vector<std::int16_t> samples;
    for (std::size_t i = 0; i + 1 < le(40, 4) && 44 + i + 1 < data.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(le(44 + i, 2)));
    return samples;
}

// Mean absolute sample value over [from, to) seconds.
double loudness(const std::vector<std::int16_t>& samples, double from, double to) {
    std::size_t a = static_cast<std::size_t>(from * 44100) * 2, b = static_cast<std::size_t>(to * 44100) * 2;
    b = std::min(b, samples.size());
    double sum = 0;
    for (std::size_t i = a; i < b; ++i) sum += std::abs(samples[i]);
    return b > a ? sum / static_cast<double>(b - a) : 0.0;
}

TEST(SampleDemo, PlaysToItsEndHeadless) {
    ScratchDir dir;
    fs::copy(sampleDir, "sample", fs::copy_options::recursive);
    fs::remove("sample/logfile.txt");
    RunResult run = runPlayer(showArguments("sample", "shot-", {"--audio-out", "music.wav"}), dir.path().string());
    ASSERT_EQ(run.status, 0) << run.standardError;
    // A capture ends with its summary; nothing else is said.
    const std::string summary = "vzplayer: 3003 frames, show time 0.00 to 120.04 s, in ";
    EXPECT_EQ(run.standardError.substr(0, summary.size()), summary);
    EXPECT_EQ(std::count(run.standardError.begin(), run.standardError.end(), '\n'), 1);

    expectSameAs(maskedLogLines("sample/logfile.txt"), "sample.log");
    expectSameAs(frameChecksums("shot-"), "sample-frames.txt");

    const std::vector<std::int16_t> wav = wavSamples("music.wav");
    // Every video frame adds 44100 / 25 sample frames, whether music plays or not, up to
    // and including the frame that reads "endDemo" (at 120 s of music time): 3003 frames.
    EXPECT_EQ(wav.size() / 2, 3003u * 1764);
    for (double t = 1; t < 59; t += 4) EXPECT_GT(loudness(wav, t, t + 1), 100.0) << "silent at " << t << " s";
    EXPECT_LT(loudness(wav, 59.5, 60), loudness(wav, 50, 51) / 4) << "the music fades out";

    // The same show from a zip archive of the demo gives the same frames.
    std::vector<std::pair<std::string, std::string>> members;
    for (const auto& entry : fs::directory_iterator(sampleDir))
        if (entry.is_regular_file() && entry.path().filename() != "logfile.txt")
            members.emplace_back(entry.path().filename().string(), readFile(entry.path()));
    writeZip("sample.zip", members);
    RunResult zipped = runPlayer(showArguments("sample.zip", "zip-"), dir.path().string());
    ASSERT_EQ(zipped.status, 0) << zipped.standardError;
    EXPECT_EQ(zipped.standardError, "");  // the music too was found in the archive
    EXPECT_EQ(frameChecksums("zip-"), frameChecksums("shot-"));
}

}  // namespace
}  // namespace vz::test
