#pragma once
// The playing position of the music an audio device is consuming, read on the main
// thread while the device's own thread hands over samples.
//
// At each hand-over the device thread records how many frames it had handed over
// before this block and when (steady clock). The frames that are audible at that
// moment are those handed over minus the ones still queued in the device, so the
// position then was (handedBefore - queued) / rate; between hand-overs it advances
// with the steady clock, capped at the end of the block just handed over (the device
// cannot play what it has not received), and a reading never goes below the previous
// one. The device thread never waits: the record is published through a sequence
// counter that readers retry on.
#include <atomic>
#include <chrono>
#include <cstdint>

namespace vz {

class DeviceClock {
public:
    using Clock = std::chrono::steady_clock;

    // `queuedFrames`: frames that sit in the device ahead of each block handed over
    // (for a callback device, about one device buffer).
    DeviceClock(int rate, int queuedFrames);

    // Device thread, at the start of every hand-over of `frames` frames.
    void handOver(std::int64_t frames, Clock::time_point when);

    // Main thread, while the device thread is held off (device locked): new music, so
    // nothing of it has been handed over and the position restarts at 0.
    void restart();

    // Main thread: seconds of the music heard at `now`; 0 until its first hand-over.
    double position(Clock::time_point now);

private:
    const double rate_;
    const std::int64_t queued_;
    std::atomic<std::uint64_t> sequence_{0};  // odd while the device thread writes
    std::atomic<std::int64_t> handedBefore_{0};
    std::atomic<std::int64_t> blockFrames_{0};
    std::atomic<std::int64_t> whenNs_{0};
    std::atomic<bool> started_{false};
    double lastReading_ = 0.0;  // main thread only
};

}  // namespace vz
