#include "shell/sound/DeviceClock.hpp"

#include <algorithm>

namespace vz {

DeviceClock::DeviceClock(int rate, int queuedFrames) : rate_(rate), queued_(queuedFrames) {}

void DeviceClock::handOver(std::int64_t frames, Clock::time_point when) {
    const std::int64_t before =
        handedBefore_.load(std::memory_order_relaxed) + blockFrames_.load(std::memory_order_relaxed);
    sequence_.fetch_add(1, std::memory_order_acq_rel);
    handedBefore_.store(before, std::memory_order_relaxed);
    blockFrames_.store(frames, std::memory_order_relaxed);
    whenNs_.store(std::chrono::duration_cast<std::chrono::nanoseconds>(when.time_since_epoch()).count(),
                  std::memory_order_relaxed);
    started_.store(true, std::memory_order_relaxed);
    sequence_.fetch_add(1, std::memory_order_release);
}

void DeviceClock::restart() {
    sequence_.fetch_add(1, std::memory_order_acq_rel);
    handedBefore_.store(0, std::memory_order_relaxed);
    blockFrames_.store(0, std::memory_order_relaxed);
    started_.store(false, std::memory_order_relaxed);
    sequence_.fetch_add(1, std::memory_order_release);
    lastReading_ = 0.0;
}

double DeviceClock::position(Clock::time_point now) {
    std::int64_t before, frames, whenNs;
    bool started;
    for (;;) {
        std::uint64_t first = sequence_.load(std::memory_order_acquire);
        if (first & 1) continue;
        before = handedBefore_.load(std::memory_order_relaxed);
        frames = blockFrames_.load(std::memory_order_relaxed);
        whenNs = whenNs_.load(std::memory_order_relaxed);
        started = started_.load(std::memory_order_relaxed);
        std::atomic_thread_fence(std::memory_order_acquire);
        if (sequence_.load(std::memory_order_relaxed) == first) break;
    }
    if (!started) return lastReading_;
    const double since =
        std::chrono::duration<double>(now.time_since_epoch() - std::chrono::nanoseconds(whenNs)).count();
    const double heardAtHandOver = static_cast<double>(before - queued_) / rate_;
    const double endOfBlock = static_cast<double>(before + frames - queued_) / rate_;
    const double reading = std::min(heardAtHandOver + std::max(since, 0.0), endOfBlock);
    lastReading_ = std::max(lastReading_, reading);
    return lastReading_;
}

}  // namespace vz
