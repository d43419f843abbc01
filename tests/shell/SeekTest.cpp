// Seeking, pausing and stepping through the headless console: every frame shown after
// them is the frame a straight run shows at that time, with module and stream music.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "core/logstream.hpp"
#include "shell/Player.hpp"
#include "shell/display/headless/HeadlessConsole.hpp"
#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

namespace fs = std::filesystem;
const fs::path sample = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";

struct Press {
    long frame;
    int code;
};

class SeekTest : public ::testing::Test {
protected:
    // The last frame shown by a headless run to `until` with these key presses.
    std::uint64_t play(double until, const std::vector<Press>& presses) {
        HeadlessConsole console;
        for (const Press& press : presses) console.queueKey(press.frame, Key{press.code});
        options.headless = true;
        options.until = until;
        EXPECT_EQ(playDemo(options, console), 0);
        return test::checksum(test::Picture{0, 0, console.lastFrame()});
    }

    std::vector<std::string> logLinesWith(const std::string& prefix) {
        std::vector<std::string> found;
        for (const auto& line : test::readLines("logfile.txt"))
            if (line.rfind(prefix, 0) == 0) found.push_back(line);
        return found;
    }

    test::ScratchDir dir;
    Options options;
};

TEST_F(SeekTest, ModuleMusicSeeksBackAndForthToTheFramesOfAStraightRun) {
    for (const auto& entry : fs::directory_iterator(sample)) fs::copy_file(entry.path(), entry.path().filename());
    const std::uint64_t straight = play(37.0, {});
    // Right at 2.00 s goes to 3.00 s: Space two frames later logs 3.04. Then on to 35.56 s,
    // past the start of the random offsets (34.56 s, a component that takes a seed), and
    // ten seconds back: the show starts afresh and must draw them as the first time did.
    // (A seek past the end time would end the run at once.)
    const std::uint64_t seeking = play(37.0, {{100, keyRight},
                                              {102, ' '},
                                              {110, keyPageUp},
                                              {115, keyPageUp},
                                              {120, keyPageUp},
                                              {125, keyRight},
                                              {130, keyRight},
                                              {135, keyPageDown}});
    EXPECT_EQ(logLinesWith("actualTime = "), std::vector<std::string>{"actualTime = 3"});
    EXPECT_EQ(seeking, straight);
}

class StreamDemoTest : public SeekTest {
protected:
    void SetUp() override {
        // 440 Hz for 5 s, then 880 Hz.
        if (std::system("ffmpeg -loglevel error -f lavfi -i sine=frequency=440:duration=5 -f lavfi -i "
                        "sine=frequency=880:duration=15 -filter_complex concat=n=2:v=0:a=1 tone.mp3") != 0)
            GTEST_SKIP() << "ffmpeg cannot make an MP3";
        for (const char* file : {"star.gif", "sprite_path.txt"}) fs::copy_file(sample / file, file);
        test::writeFile("config.txt", "160\n100\n100\n0\n8\n2\n");
        // The star is added onto the screen and never cleared: every frame depends on
        // all the frames before it.
        test::writeFile("main.txt",
                        "playMp3 tone.mp3 0 0\n0 -1 0 1 0\n"
                        "add star Layer32bpp star.gif\nadd path KeytrackSprite sprite_path.txt\n"
                        "spriteKeytrack32bpp screen star path constInt 33\n0 100 0 1 0\n");
        options.fps = 10;  // frame n shows n / 10 s
    }
};

TEST_F(StreamDemoTest, StreamMusicSeeksBackAndForthToTheFramesOfAStraightRun) {
    const std::uint64_t straight = play(15.0, {});
    EXPECT_EQ(play(15.0, {{10, keyPageUp}, {15, keyLeft}, {20, keyHome}, {25, keyRight}}), straight);
}

TEST_F(StreamDemoTest, PausedStepsDrawOneFrameEachAndTheShowGoesOnFromThere) {
    options.shots = {{1.0, (dir.path() / "straight.png").string()}};
    const std::uint64_t straight = play(3.0, {});
    options.shots = {{1.0, (dir.path() / "stepped.png").string()}};
    // The music starts in frame 1, so frame n shows (n - 1) / 10 s. Paused when frame 10
    // (0.9 s) is due; two steps draw 0.9 and 1.0 s; Space then logs the held 1.1 s; the
    // show resumes there.
    const std::uint64_t stepped = play(3.0, {{10, 'p'}, {15, '.'}, {20, '.'}, {25, ' '}, {30, 'p'}});
    EXPECT_EQ(logLinesWith("actualTime = "), std::vector<std::string>{"actualTime = 1.1"});
    EXPECT_EQ(test::checksum(test::readPng("stepped.png")), test::checksum(test::readPng("straight.png")));
    EXPECT_EQ(stepped, straight);
}

TEST_F(StreamDemoTest, TheStreamIsHeardFromTheStartTime) {
    options.start = 6.0;
    options.audioOut = (dir.path() / "after.wav").string();
    play(6.5, {});
    // The 880 Hz part, after the 44-byte header; a stream played from its start would
    // give half as many sign changes.
    const std::string wav = test::readFile("after.wav");
    ASSERT_GT(wav.size(), 44u + 4 * 11025u);
    std::vector<std::int16_t> samples(2 * 11025);
    std::memcpy(samples.data(), wav.data() + 44, samples.size() * 2);
    int crossings = 0;
    for (std::size_t i = 2; i < samples.size(); i += 2) crossings += (samples[i] < 0) != (samples[i - 2] < 0);
    EXPECT_NEAR(crossings, 2 * 880 / 4, 10);
}

}  // namespace
}  // namespace vz
