#pragma once
// The show's clock when no music plays. Real time from the steady clock, or, for
// headless runs, frame-driven time: frame n since the last reset reads n / fps, so
// every run of the same demo sees the same times. The SoundSystem owns the one timer of
// the player, beside the music whose clock takes over while it plays.
#include <chrono>
#include <cstdint>

namespace vz {

class Timer {
public:
    void stop();
    void set(double seconds);  // the time the timer reads from here on (frames: reset to n = 0)
    void start();
    double time() const;  // seconds

    // Frame-driven time at `fps` frames per second (headless runs); 0: real time.
    void driveByFrames(double fps);
    bool frameDriven() const { return fps_ > 0; }
    double framesPerSecond() const { return fps_; }
    // Called once at the end of every frame; advances frame-driven time by one frame.
    void frameDone();

private:
    using Clock = std::chrono::steady_clock;
    bool running_ = false;
    double base_ = 0.0;  // reading at the last set/start
    Clock::time_point startedAt_{};
    double fps_ = 0.0;         // > 0: frame-driven
    std::int64_t frames_ = 0;  // frames since the last set
};

}  // namespace vz
