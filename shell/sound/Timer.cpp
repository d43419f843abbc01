#include "shell/sound/Timer.hpp"

namespace vz {

void Timer::stop() {
    if (running_ && !frameDriven()) base_ = time();
    running_ = false;
}

void Timer::set(double seconds) {
    base_ = seconds;
    frames_ = 0;
    startedAt_ = Clock::now();
}

void Timer::start() {
    if (!running_) startedAt_ = Clock::now();
    running_ = true;
}

double Timer::time() const {
    if (frameDriven()) return base_ + static_cast<double>(frames_) / fps_;
    if (!running_) return base_;
    return base_ + std::chrono::duration<double>(Clock::now() - startedAt_).count();
}

void Timer::driveByFrames(double fps) {
    fps_ = fps;
    frames_ = 0;
}

void Timer::frameDone() {
    if (frameDriven()) ++frames_;
}

}  // namespace vz
