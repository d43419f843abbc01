// The sound as it leaves the player: the lock-step WAV file and the audio device.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "shell/error.hpp"
#include "shell/sound/MusicComponents.hpp"
#include "shell/sound/SoundSystem.hpp"
#include "tests/shell/ModWriter.hpp"
#include "tests/shell/SoundTestSupport.hpp"

namespace vz::test {
namespace {

// The little-endian number of `size` bytes at `at`.
std::uint32_t le(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t v = 0;
    for (int i = size - 1; i >= 0; --i) v = (v << 8) | static_cast<unsigned char>(bytes[at + i]);
    return v;
}

class SoundOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto song = makeTestSong();
        writeBytes("song.mod", {song.begin(), song.end()});
        startLog();
    }
    void TearDown() override { SoundSystem::instance().close(); }
    ScratchDir scratch;
};

TEST_F(SoundOutputTest, WavLinesUpWithTheFrames) {
    // 24 frames per second: 1837.5 samples per frame, so frames alternate 1838 and 1837.
    constexpr double fps = 24.0;
    Timer::instance().driveByFrames(fps);
    SoundSystem& sound = SoundSystem::instance();
    sound.initialise(false, AudioMode::lockStep, fps);
    sound.setAudioOut("out.wav");
    playFrames(3);
    makeFromLine<PlayModule>("song.mod 0 0")->run(0.0f);
    playFrames(4);
    sound.close();

    const std::string wav = readFile("out.wav");
    const std::size_t frames = 12863;  // round(7 × 44100 / 24)
    ASSERT_EQ(wav.size(), 44 + frames * 4);
    EXPECT_EQ(wav.substr(0, 4) + wav.substr(8, 8) + wav.substr(36, 4), "RIFFWAVEfmt data");
    // Offset, size, value: RIFF size, fmt size, PCM, 2 channels, rate, byte rate, block, bits, data size.
    const std::uint32_t fields[][3] = {{4, 4, 36 + frames * 4}, {16, 4, 16}, {20, 2, 1},      {22, 2, 2},
                                       {24, 4, 44100},          {28, 4, 44100 * 4}, {32, 2, 4}, {34, 2, 16},
                                       {40, 4, frames * 4}};
    for (const auto& [at, size, value] : fields) EXPECT_EQ(le(wav, at, static_cast<int>(size)), value) << at;

    // The music begins with frame 3, at sample round(3 × 1837.5) = 5513, not before.
    constexpr std::size_t musicStart = 5513;
    std::size_t firstSound = frames;
    for (std::size_t i = 0; i < frames * 2 && firstSound == frames; ++i)
        if (le(wav, 44 + 2 * i, 2) != 0) firstSound = i / 2;
    EXPECT_GE(firstSound, musicStart);
    EXPECT_LT(firstSound, musicStart + 16);
}

TEST_F(SoundOutputTest, AudioOutNeedsLockStep) {
    SoundSystem::instance().initialise(true, AudioMode::device);
    EXPECT_THROW(SoundSystem::instance().setAudioOut("out.wav"), error);
}

// The real device path, on SDL's dummy driver (no sound card needed).
TEST_F(SoundOutputTest, DeviceClockRunsWithTheMusicFromTheOffset) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    SoundSystem& sound = SoundSystem::instance();
    sound.initialise(false, AudioMode::device);
    if (!sound.deviceStatistics().deviceOpen) GTEST_SKIP() << "no dummy audio device";
    makeFromLine<PlayModule>("song.mod 0 5.0")->run(0.0f);
    ASSERT_TRUE(sound.modulePlaying());
    EXPECT_GE(sound.currentTime(), 5.0f);
    const auto begin = std::chrono::steady_clock::now();
    float previous = sound.currentTime();
    while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(300)) {
        const float now = sound.currentTime();
        EXPECT_GE(now, previous);
        previous = now;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    // 0.3 s of wall time, minus the device's latency, give or take scheduling.
    EXPECT_GT(previous, 5.1f);
    EXPECT_LT(previous, 5.4f);
    EXPECT_GT(sound.deviceStatistics().secondsHandedOver, 0.1);
    sound.close();
    EXPECT_FALSE(sound.deviceStatistics().deviceOpen);
    unsetenv("SDL_AUDIODRIVER");
}

}  // namespace
}  // namespace vz::test
