#include "shell/sound/DeviceClock.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace vz {
namespace {

using Clock = DeviceClock::Clock;
using std::chrono::milliseconds;

// A fake device at 1000 frames per second with 100-frame blocks and 100 frames queued
// ahead of each block: a frame is one millisecond, and the sound handed over at a
// hand-over is heard 100 ms later.
constexpr int rate = 1000;
constexpr int block = 100;
constexpr int queued = 100;

class DeviceClockTest : public ::testing::Test {
protected:
    void handOverAt(int ms) { clock.handOver(block, start + milliseconds(ms)); }
    double readAt(int ms) { return clock.position(start + milliseconds(ms)); }

    DeviceClock clock{rate, queued};
    const Clock::time_point start = Clock::now();
};

TEST_F(DeviceClockTest, FollowsWhatIsHeardNotWhatIsHandedOverAndRestartsForNewMusic) {
    EXPECT_EQ(readAt(0), 0.0);  // nothing handed over yet
    handOverAt(0);
    // The first block is queued behind the device's buffer: silence is heard first.
    EXPECT_EQ(readAt(50), 0.0);
    handOverAt(100);
    EXPECT_DOUBLE_EQ(readAt(100), 0.0);
    EXPECT_DOUBLE_EQ(readAt(130), 0.030);
    handOverAt(200);
    EXPECT_DOUBLE_EQ(readAt(200), 0.100);
    clock.restart();
    EXPECT_EQ(readAt(210), 0.0);
    handOverAt(300);
    handOverAt(400);
    EXPECT_DOUBLE_EQ(readAt(410), 0.010);
}

TEST_F(DeviceClockTest, AdvancesSmoothlyBetweenHandOversAndNeverBackwards) {
    handOverAt(0);
    handOverAt(100);
    // Millisecond by millisecond between two regular hand-overs.
    for (int ms = 100; ms < 200; ++ms) EXPECT_NEAR(readAt(ms), (ms - 100) / 1000.0, 1e-9);

    // A late hand-over: the clock stops at the end of what the device has received.
    handOverAt(200);
    EXPECT_DOUBLE_EQ(readAt(290), 0.190);
    EXPECT_DOUBLE_EQ(readAt(350), 0.200);
    EXPECT_DOUBLE_EQ(readAt(380), 0.200);
    handOverAt(380);  // the late block arrives; the clock goes on from there
    EXPECT_DOUBLE_EQ(readAt(390), 0.210);

    // An early hand-over would put the clock back; it holds still instead.
    handOverAt(400);  // heard at hand-over: 0.300, though 0.220 is due
    EXPECT_DOUBLE_EQ(readAt(400), 0.300);
    handOverAt(410);  // jitter the other way: 0.400 at 410 ms
    EXPECT_DOUBLE_EQ(readAt(405), 0.400);
    EXPECT_DOUBLE_EQ(readAt(420), 0.410);
}

TEST(DeviceClock, ReadingsStayConsistentWhileAnotherThreadHandsOver) {
    DeviceClock clock(rate, 0);
    const Clock::time_point start = Clock::now();
    constexpr int blocks = 20000;
    std::atomic<bool> done{false};
    // Readings taken while the records change stay in order and within what has been
    // handed over, and the last record is read whole.
    std::thread device([&] {
        for (int i = 0; i < blocks; ++i) clock.handOver(block, start + milliseconds(i * block));
        done = true;
    });
    double previous = 0.0;
    int reads = 0;
    while (!done || reads < 1000) {
        const double now = clock.position(start + milliseconds(blocks * block));
        EXPECT_GE(now, previous);
        EXPECT_LE(now, blocks * block / 1000.0);
        previous = now;
        ++reads;
    }
    device.join();
    EXPECT_DOUBLE_EQ(clock.position(start + milliseconds(blocks * block)), blocks * block / 1000.0);
}

}  // namespace
}  // namespace vz
