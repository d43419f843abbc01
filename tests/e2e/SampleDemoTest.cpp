// The bundled sample demo played headless to its end, as `make run` plays it without a
// display: exit status, the whole log, chosen frames, the music, and the same show from
// a zip archive. Expected logs and frame checksums live in tests/e2e/expected/; after an
// intended change of the demo, run the test with VZ_UPDATE_EXPECTED=1 to rewrite them.
#include <gtest/gtest.h>

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
const std::vector<double> shotTimes{1,  6,  12,   16.5, 18.5, 21,   25,   29,   33,   37,   39.5, 41.5,  43.5,  45,  48,
                                    52, 56, 59.5, 61.5, 64.5, 67.5, 69.4, 70.1, 70.9, 71.6, 72.5, 73.25, 73.75, 74.5};

bool updating() { return std::getenv("VZ_UPDATE_EXPECTED") != nullptr; }

std::vector<std::string> shotArguments(const std::string& prefix) {
    std::vector<std::string> args;
    for (double t : shotTimes) {
        std::ostringstream shot;
        shot << t << "=" << prefix << t << ".png";
        args.push_back("--shot");
        args.push_back(shot.str());
    }
    return args;
}

// "time checksum" per shot, one per line.
std::string frameChecksums(const std::string& prefix) {
    std::ostringstream out;
    for (double t : shotTimes) {
        std::ostringstream file;
        file << prefix << t << ".png";
        out << t << " " << std::hex << checksum(readPng(file.str())) << std::dec << "\n";
    }
    return out.str();
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    return text;
}

// Compares with the expected file, or rewrites it when updating.
void expectSameAs(const std::string& actual, const std::string& expectedFile) {
    fs::path path = expectedDir / expectedFile;
    if (updating()) {
        fs::create_directories(expectedDir);
        writeFile(path, actual);
        return;
    }
    ASSERT_TRUE(fs::exists(path)) << path;
    std::vector<std::string> want = readLines(path);
    std::istringstream in(actual);
    std::vector<std::string> got;
    for (std::string line; std::getline(in, line);) got.push_back(line);
    ASSERT_EQ(got.size(), want.size()) << expectedFile;
    for (std::size_t i = 0; i < got.size(); ++i) EXPECT_EQ(got[i], want[i]) << expectedFile << " line " << i + 1;
}

struct WavSummary {
    std::uint32_t sampleRate = 0;
    std::uint16_t channels = 0, bits = 0;
    std::vector<std::int16_t> samples;
};

WavSummary readWav(const std::string& path) {
    std::string data = readFile(path);
    WavSummary w;
    if (data.size() < 44 || data.compare(0, 4, "RIFF") != 0 || data.compare(8, 4, "WAVE") != 0) return w;
    auto u16 = [&](std::size_t at) {
        return static_cast<std::uint16_t>(std::uint8_t(data[at]) | (std::uint8_t(data[at + 1]) << 8));
    };
    auto u32 = [&](std::size_t at) { return std::uint32_t(u16(at)) | (std::uint32_t(u16(at + 2)) << 16); };
    w.channels = u16(22);
    w.sampleRate = u32(24);
    w.bits = u16(34);
    std::uint32_t bytes = u32(40);
    for (std::size_t i = 0; i + 1 < bytes && 44 + i + 1 < data.size(); i += 2)
        w.samples.push_back(static_cast<std::int16_t>(u16(44 + i)));
    return w;
}

// Mean absolute sample value over [from, to) seconds.
double loudness(const WavSummary& w, double from, double to) {
    std::size_t a = static_cast<std::size_t>(from * 44100) * 2, b = static_cast<std::size_t>(to * 44100) * 2;
    b = std::min(b, w.samples.size());
    double sum = 0;
    for (std::size_t i = a; i < b; ++i) sum += std::abs(w.samples[i]);
    return b > a ? sum / static_cast<double>(b - a) : 0.0;
}

TEST(SampleDemo, PlaysToItsEndHeadless) {
    ScratchDir dir;
    fs::copy(sampleDir, "sample", fs::copy_options::recursive);
    fs::remove("sample/logfile.txt");
    std::vector<std::string> args{"--headless", "--fps", "25", "--audio-out", "music.wav"};
    auto shots = shotArguments("shot-");
    args.insert(args.end(), shots.begin(), shots.end());
    args.push_back("sample");
    RunResult run = runPlayer(args, dir.path().string());
    ASSERT_EQ(run.status, 0) << run.standardError;
    EXPECT_EQ(run.standardError, "");

    expectSameAs(joined(maskedLogLines("sample/logfile.txt")), "sample.log");
    expectSameAs(frameChecksums("shot-"), "sample-frames.txt");

    WavSummary wav = readWav("music.wav");
    EXPECT_EQ(wav.sampleRate, 44100u);
    EXPECT_EQ(wav.channels, 2);
    EXPECT_EQ(wav.bits, 16);
    // Every video frame adds 44100 / 25 sample frames, whether music plays or not; the
    // show ends on "endDemo" at the first frame after 75 s of music time.
    EXPECT_EQ(wav.samples.size() / 2 % 1764, 0u);
    EXPECT_NEAR(static_cast<double>(wav.samples.size()) / 2 / 44100, 75.1, 0.1);
    for (double t = 1; t < 59; t += 4) EXPECT_GT(loudness(wav, t, t + 1), 100.0) << "silent at " << t << " s";
    EXPECT_LT(loudness(wav, 59.5, 60), loudness(wav, 50, 51) / 4) << "the music fades out";

    // The same show from a zip archive of the demo gives the same frames.
    std::vector<std::pair<std::string, std::string>> members;
    for (const auto& entry : fs::directory_iterator(sampleDir))
        if (entry.is_regular_file() && entry.path().filename() != "logfile.txt")
            members.emplace_back(entry.path().filename().string(), readFile(entry.path()));
    writeZip("sample.zip", members);
    std::vector<std::string> zipArgs{"--headless", "--fps", "25"};
    auto zipShots = shotArguments("zip-");
    zipArgs.insert(zipArgs.end(), zipShots.begin(), zipShots.end());
    zipArgs.push_back("sample.zip");
    RunResult zipped = runPlayer(zipArgs, dir.path().string());
    ASSERT_EQ(zipped.status, 0) << zipped.standardError;
    EXPECT_EQ(frameChecksums("zip-"), frameChecksums("shot-"));
}

}  // namespace
}  // namespace vz::test
