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

class FakeDevice {
public:
    explicit FakeDevice(DeviceClock& clock) : clock_(clock) {}
    void handOverAt(int ms) { clock_.handOver(block, start + milliseconds(ms)); }
    double readAt(int ms) { return clock_.position(start + milliseconds(ms)); }

    const Clock::time_point start = Clock::now();

private:
    DeviceClock& clock_;
};

TEST(DeviceClock, FollowsWhatIsHeardNotWhatIsHandedOver) {
    DeviceClock clock(rate, queued);
    FakeDevice device(clock);
    EXPECT_EQ(device.readAt(0), 0.0);  // nothing handed over yet
    device.handOverAt(0);
    // The first block is queued behind the device's buffer: silence is heard first.
    EXPECT_EQ(device.readAt(50), 0.0);
    device.handOverAt(100);
    EXPECT_DOUBLE_EQ(device.readAt(100), 0.0);
    EXPECT_DOUBLE_EQ(device.readAt(130), 0.030);
    device.handOverAt(200);
    EXPECT_DOUBLE_EQ(device.readAt(200), 0.100);
}

TEST(DeviceClock, AdvancesSmoothlyBetweenHandOversAndNeverBackwards) {
    DeviceClock clock(rate, queued);
    FakeDevice device(clock);
    device.handOverAt(0);
    device.handOverAt(100);
    // Millisecond by millisecond between two regular hand-overs.
    for (int ms = 100; ms < 200; ++ms) EXPECT_NEAR(device.readAt(ms), (ms - 100) / 1000.0, 1e-9);

    // A late hand-over: the clock stops at the end of what the device has received.
    device.handOverAt(200);
    EXPECT_DOUBLE_EQ(device.readAt(290), 0.190);
    EXPECT_DOUBLE_EQ(device.readAt(350), 0.200);
    EXPECT_DOUBLE_EQ(device.readAt(380), 0.200);
    device.handOverAt(380);  // the late block arrives; the clock goes on from there
    EXPECT_DOUBLE_EQ(device.readAt(390), 0.210);

    // An early hand-over would put the clock back; it holds still instead.
    device.handOverAt(400);  // heard at hand-over: 0.300, though 0.220 is due
    EXPECT_DOUBLE_EQ(device.readAt(400), 0.300);
    device.handOverAt(410);  // jitter the other way: 0.400 at 410 ms
    EXPECT_DOUBLE_EQ(device.readAt(405), 0.400);
    EXPECT_DOUBLE_EQ(device.readAt(420), 0.410);
}

TEST(DeviceClock, RestartsAtZeroForNewMusic) {
    DeviceClock clock(rate, queued);
    FakeDevice device(clock);
    for (int ms = 0; ms <= 500; ms += 100) device.handOverAt(ms);
    EXPECT_DOUBLE_EQ(device.readAt(550), 0.450);
    clock.restart();
    EXPECT_EQ(device.readAt(560), 0.0);
    device.handOverAt(600);
    device.handOverAt(700);
    EXPECT_DOUBLE_EQ(device.readAt(710), 0.010);
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
