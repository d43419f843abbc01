#include "shell/Progress.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace vz {

namespace {

constexpr auto redrawInterval = std::chrono::milliseconds(100);
constexpr int barWidth = 30;

}  // namespace

Progress::Progress(std::optional<double> until, bool wanted)
    : until_(until), wanted_(wanted), terminal_(isatty(STDERR_FILENO) != 0), started_(Clock::now()) {}

double Progress::elapsed() const { return std::chrono::duration<double>(Clock::now() - started_).count(); }

void Progress::frame(float t) {
    if (frames_ == 0) first_ = t;
    last_ = t;
    ++frames_;
    if (!wanted_ || !terminal_) return;
    const auto now = Clock::now();
    if (now - drawn_ < redrawInterval) return;
    drawn_ = now;
    const double seconds = elapsed();
    const double rate = seconds > 0 ? frames_ / seconds : 0.0;
    char bar[barWidth + 1] = {};
    char left[32] = "";
    if (until_ && *until_ > first_) {
        const double done = std::clamp((t - first_) / (*until_ - first_), 0.0, 1.0);
        const int filled = static_cast<int>(done * barWidth);
        for (int i = 0; i < barWidth; ++i) bar[i] = i < filled ? '#' : '.';
        if (done > 0) std::snprintf(left, sizeof left, ", %.0f s left", seconds * (1.0 - done) / done);
    }
    std::fprintf(stderr, "\r%s %8.2f s  %ld frames  %.1f fps%s   ", bar, t, frames_, rate, left);
    std::fflush(stderr);
}

void Progress::finish() {
    if (!wanted_) return;
    const double seconds = elapsed();
    if (terminal_) std::fputc('\n', stderr);
    std::fprintf(stderr, "vzplayer: %ld frames, show time %.2f to %.2f s, in %.1f s (%.1f frames per second)\n",
                 frames_, first_, last_, seconds, seconds > 0 ? frames_ / seconds : 0.0);
}

}  // namespace vz
