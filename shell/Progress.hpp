#pragma once
// Progress of a capture (--record, --dump-frames, --audio-out) on standard error: on a
// terminal a bar redrawn in place (show time, frames, frames per second, time left when
// the end time is known); otherwise, and at the end, one summary line.
#include <chrono>
#include <optional>

namespace vz {

class Progress {
public:
    // Says nothing at all unless `wanted`.
    Progress(std::optional<double> until, bool wanted);

    // After every frame shown at show time t.
    void frame(float t);
    // The summary line.
    void finish();

private:
    using Clock = std::chrono::steady_clock;
    double elapsed() const;

    std::optional<double> until_;
    bool wanted_;
    bool terminal_;
    long frames_ = 0;
    float first_ = 0.0f;
    float last_ = 0.0f;
    Clock::time_point started_;
    Clock::time_point drawn_{};
};

}  // namespace vz
