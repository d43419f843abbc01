// The music components, and the sound as it leaves the player: the lock-step WAV file
// and the audio device.
#include "shell/sound/MusicComponents.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <thread>

#include "core/error.hpp"
#include "shell/sound/SoundSystem.hpp"
#include "shell/sound/WavWriter.hpp"
#include "support/EffectTestSupport.hpp"
#include "tests/shell/TestSong.hpp"

namespace vz::test {
namespace {

constexpr double fps = 50.0;  // 882 samples, 0.02 s per frame

// The little-endian number of `size` bytes at `at`.
std::uint32_t le(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t v = 0;
    for (int i = size - 1; i >= 0; --i) v = (v << 8) | static_cast<unsigned char>(bytes[at + i]);
    return v;
}

// Ends `count` lock-step frames and returns the samples they rendered.
std::vector<std::int16_t> playFrames(int count) {
    std::vector<std::int16_t> all;
    for (int i = 0; i < count; ++i) {
        SoundSystem::instance().endFrame();
        const auto& frame = SoundSystem::instance().lastFrameAudio();
        all.insert(all.end(), frame.begin(), frame.end());
    }
    return all;
}

int peak(const std::vector<std::int16_t>& samples) {
    int highest = 0;
    for (std::int16_t v : samples) highest = std::max(highest, std::abs(static_cast<int>(v)));
    return highest;
}

// The sign changes of the mono mix over `frames` frames, against those of a plain tone
// of `hz` over as many samples.
void expectTone(int frames, double hz, double tolerance) {
    const std::vector<std::int16_t> stereo = playFrames(frames);
    int crossings = 0, previous = 0;
    for (std::size_t i = 0; i + 1 < stereo.size(); i += 2) {
        const int mix = stereo[i] + stereo[i + 1];
        if (mix == 0) continue;
        if ((mix > 0) != (previous > 0) && previous != 0) ++crossings;
        previous = mix;
    }
    EXPECT_NEAR(crossings, 2.0 * hz * static_cast<double>(stereo.size() / 2) / 44100.0, tolerance) << hz;
}

// Lock-step sound at 50 frames per second over a scratch directory holding "song.mod";
// the components are made from script lines as the timeline makes them.
class MusicTest : public EffectTest {
protected:
    void SetUp() override {
        writeBytes("song.mod", makeTestSong());
        startLog();
    }
    void TearDown() override { SoundSystem::instance().close(); }

    static SoundSystem& sound() { return SoundSystem::instance(); }
    static void initialise(bool nosound = false) { sound().initialise(nosound, AudioMode::lockStep, fps); }
};

TEST_F(MusicTest, ModuleStartsAtItsOrderWhileTheClockStartsAtTheOffset) {
    initialise();
    make("playModule song.mod 0 10.0")->run(0.0f);
    EXPECT_FLOAT_EQ(sound().currentTime(), 10.0f);
    expectTone(10, testSongHighHz, 6);  // 0.2 s
    EXPECT_FLOAT_EQ(sound().currentTime(), 10.2f);

    // Order 2 holds the low tone; the clock still starts at the offset.
    make("playModule song.mod 2 3.5")->run(0.0f);
    EXPECT_FLOAT_EQ(sound().currentTime(), 3.5f);
    expectTone(10, testSongLowHz, 4);
    EXPECT_FLOAT_EQ(sound().currentTime(), 3.7f);

    // Order 1 is silent for its half second, then order 2 follows.
    auto silent = make("playModule song.mod 1 0");
    silent->run(0.0f);
    EXPECT_EQ(peak(playFrames(24)), 0);
    playFrames(2);
    EXPECT_GT(peak(playFrames(5)), 1000);
    EXPECT_FLOAT_EQ(sound().currentTime(), 0.62f);

    // A component acts on its first run only: running it again changes nothing.
    silent->run(1.0f);
    EXPECT_FLOAT_EQ(sound().currentTime(), 0.62f);
    EXPECT_TRUE(sound().modulePlaying());
}

TEST_F(MusicTest, MissingOrUnplayableFilesLeaveTheShowOnTheRestartedTimer) {
    initialise();
    writeFile("text.mod", "not a module at all");
    writeFile("text.mp3", "not a stream either");
    make("playModule song.mod 0 0")->run(0.0f);
    for (const char* line : {"gone.mod 0 3.0", "text.mod 0 3.0"}) {
        testing::internal::CaptureStderr();
        make(std::string("playModule ") + line)->run(0.0f);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_NE(said.find(std::string(line).substr(0, 8)), std::string::npos) << said;
        EXPECT_FALSE(sound().modulePlaying());
        EXPECT_FLOAT_EQ(sound().currentTime(), 3.0f);
        EXPECT_EQ(peak(playFrames(5)), 0);
        EXPECT_FLOAT_EQ(sound().currentTime(), 3.1f);  // the timer, driven by the frames
    }
    testing::internal::CaptureStderr();
    make("playMp3 text.mp3 1.0 2.0")->run(0.0f);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("text.mp3"), std::string::npos);
    EXPECT_FALSE(sound().streamPlaying());
    EXPECT_FLOAT_EQ(sound().currentTime(), 2.0f);
    // Each start logs its loading, then its playing, found or not.
    const auto lines = stopLogAndReadLines();
    const std::vector<std::string> starts = {"loading of song.mod", "playing of song.mod", "loading of gone.mod",
                                             "playing of gone.mod"};
    EXPECT_NE(std::search(lines.begin(), lines.end(), starts.begin(), starts.end()), lines.end());
}

TEST_F(MusicTest, NosoundResetsTheClockButPlaysAndLogsNothing) {
    initialise(true);
    playFrames(30);
    make("playModule song.mod 0 7.0")->run(0.0f);
    EXPECT_FLOAT_EQ(sound().currentTime(), 7.0f);
    EXPECT_EQ(peak(playFrames(10)), 0);
    EXPECT_FLOAT_EQ(sound().currentTime(), 7.2f);
    EXPECT_FALSE(sound().modulePlaying());
    for (const std::string& line : stopLogAndReadLines()) EXPECT_EQ(line.find("of song.mod"), std::string::npos);

    // In device mode NOSOUND opens no device at all, and there is no lock-step WAV to write.
    sound().initialise(true, AudioMode::device);
    EXPECT_THROW(sound().setAudioOut("out.wav"), error);
    make("playModule song.mod 0 1.0")->run(0.0f);
    EXPECT_FALSE(sound().deviceStatistics().deviceOpen);
    EXPECT_FALSE(sound().modulePlaying());
}

TEST_F(MusicTest, FadeFromZeroToOneRampsAndHoldsButFromOneToZeroIsSilentAtOnce) {
    initialise();
    make("playModule song.mod 0 0")->run(0.0f);
    const int full = peak(playFrames(2));
    ASSERT_GT(full, 1000);
    auto fadeIn = make("fadeVolume 0 1");
    fadeIn->run(0.0f);
    EXPECT_EQ(peak(playFrames(2)), 0);
    fadeIn->run(0.5f);  // volume 127
    playFrames(1);
    EXPECT_NEAR(peak(playFrames(2)), full * 127 / 255, full / 20);
    fadeIn->run(3.0f);  // held at 255
    playFrames(1);
    EXPECT_NEAR(peak(playFrames(2)), full, full / 50);

    auto fadeOut = make("fadeVolume 1 0");
    for (float u : {0.0f, 0.25f, 0.9f}) {
        fadeOut->run(u);
        EXPECT_EQ(peak(playFrames(2)), 0) << u;
    }
    // The module plays on under the silence: its clock did not stop.
    EXPECT_FLOAT_EQ(sound().currentTime(), 0.32f);
}

// A stream of known tones made with lame: 5 s each of 440, 660, 880 and 220 Hz. False
// when lame is not installed.
bool makeToneStream(const std::string& name) {
    if (std::system("command -v lame >/dev/null 2>&1") != 0) return false;
    std::vector<std::int16_t> samples;
    for (double hz : {440.0, 660.0, 880.0, 220.0})
        for (int i = 0; i < 5 * 44100; ++i)
            samples.insert(samples.end(), 2,
                           static_cast<std::int16_t>(12000 * std::sin(2 * std::numbers::pi * hz * i / 44100)));
    WavWriter wav;
    wav.open("tones.wav", 44100, 2);
    wav.append(samples.data(), samples.size());
    wav.close();
    return std::system(("lame --quiet -b 128 tones.wav " + name).c_str()) == 0;
}

TEST_F(MusicTest, StreamSeeksToItsStartTimeAndReplacesAndIsReplacedByModules) {
    if (!makeToneStream("tones.mp3")) GTEST_SKIP() << "lame is not installed";
    initialise();
    make("playModule song.mod 0 0")->run(0.0f);
    playFrames(5);

    make("playMp3 tones.mp3 12.5 2.0")->run(0.0f);
    EXPECT_FALSE(sound().modulePlaying());
    EXPECT_TRUE(sound().streamPlaying());
    EXPECT_FLOAT_EQ(sound().currentTime(), 14.5f);
    expectTone(10, 880.0, 4);
    EXPECT_FLOAT_EQ(sound().currentTime(), 14.7f);
    // Streams are not faded.
    make("fadeVolume 0 0")->run(0.0f);
    EXPECT_GT(peak(playFrames(2)), 5000);

    make("playModule song.mod 2 20.0")->run(0.0f);
    EXPECT_TRUE(sound().modulePlaying());
    EXPECT_FALSE(sound().streamPlaying());
    EXPECT_FLOAT_EQ(sound().currentTime(), 20.0f);
    expectTone(10, testSongLowHz, 4);
}

TEST_F(MusicTest, WavLinesUpWithTheFrames) {
    // 24 frames per second: 1837.5 samples per frame, so frames alternate 1838 and 1837.
    sound().initialise(false, AudioMode::lockStep, 24.0);
    sound().setAudioOut("out.wav");
    playFrames(3);
    make("playModule song.mod 0 0")->run(0.0f);
    playFrames(4);
    sound().close();

    const std::string wav = readFile("out.wav");
    const std::size_t frames = 12863;  // round(7 × 44100 / 24)
    ASSERT_EQ(wav.size(), 44 + frames * 4);
    EXPECT_EQ(wav.substr(0, 4) + wav.substr(8, 8) + wav.substr(36, 4), "RIFFWAVEfmt data");
    // Offset, size, value: RIFF size, fmt size, PCM, byte rate, block, data size (the
    // channels, rate and bits are read back from the sample demo's WAV).
    const std::uint32_t fields[][3] = {{4, 4, 36 + frames * 4}, {16, 4, 16}, {20, 2, 1},
                                       {28, 4, 44100 * 4},      {32, 2, 4},  {40, 4, frames * 4}};
    for (const auto& [at, size, value] : fields) EXPECT_EQ(le(wav, at, static_cast<int>(size)), value) << at;

    // The music begins with frame 3, at sample round(3 × 1837.5) = 5513, not before.
    constexpr std::size_t musicStart = 5513;
    std::size_t firstSound = frames;
    for (std::size_t i = 0; i < frames * 2 && firstSound == frames; ++i)
        if (le(wav, 44 + 2 * i, 2) != 0) firstSound = i / 2;
    EXPECT_GE(firstSound, musicStart);
    EXPECT_LT(firstSound, musicStart + 16);
}

// The real device path, on SDL's dummy driver (no sound card needed).
TEST_F(MusicTest, DeviceClockRunsWithTheMusicFromTheOffset) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    sound().initialise(false, AudioMode::device);
    if (!sound().deviceStatistics().deviceOpen) GTEST_SKIP() << "no dummy audio device";
    make("playModule song.mod 0 5.0")->run(0.0f);
    ASSERT_TRUE(sound().modulePlaying());
    EXPECT_GE(sound().currentTime(), 5.0f);
    // The clock moves on with the device and never runs ahead of the wall clock: wait (up
    // to 5 s, for a loaded machine) until 0.2 s of music has played.
    const auto begin = std::chrono::steady_clock::now();
    float previous = sound().currentTime();
    while (previous < 5.2f && std::chrono::steady_clock::now() - begin < std::chrono::seconds(5)) {
        const float now = sound().currentTime();
        EXPECT_GE(now, previous);
        previous = now;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_GE(previous, 5.2f);
    EXPECT_LT(previous, 5.0 + elapsed + 0.05);
    EXPECT_GT(sound().deviceStatistics().secondsHandedOver, 0.1);
    sound().close();
    EXPECT_FALSE(sound().deviceStatistics().deviceOpen);
    unsetenv("SDL_AUDIODRIVER");
}

}  // namespace
}  // namespace vz::test
