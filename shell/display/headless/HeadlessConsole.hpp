#pragma once
// The console of headless runs and tests: no window; the last presented frame is kept
// and keys are queued by the caller for chosen frames.
#include <cstdint>
#include <deque>
#include <vector>

#include "shell/display/Display.hpp"

namespace vz {

class HeadlessConsole : public Console {
public:
    void open(const std::string& title, int width, int height, const Format& format, int pages) override;
    void close() override { opened_ = false; }
    void present(const std::uint32_t* pixels, int width, int height) override;
    void update() override { ++updates_; }
    bool key() override;
    Key read() override;

    // Delivers `key` as waiting when the update count reaches `frame`.
    void queueKey(long frame, Key key) { keys_.push_back({frame, key}); }

    bool opened() const { return opened_; }
    const std::string& title() const { return title_; }
    long updates() const { return updates_; }
    const std::vector<std::uint32_t>& lastFrame() const { return frame_; }

private:
    struct Queued {
        long frame;
        Key key;
    };
    bool opened_ = false;
    std::string title_;
    long updates_ = 0;
    std::vector<std::uint32_t> frame_;
    std::deque<Queued> keys_;
};

}  // namespace vz
