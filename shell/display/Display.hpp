#pragma once
// What the player asks of a display: a 32-bit pixel format, an off-screen surface the
// effects draw into, a console that shows the finished frame and reports keys, and the
// display's own error type. Backends: a real window (sdl/) and no window (headless/).
#include <cstdint>
#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vz {

struct Format {
    int bits = 32;
    std::uint32_t redMask = 0xff0000;
    std::uint32_t greenMask = 0xff00;
    std::uint32_t blueMask = 0xff;
    std::uint32_t alphaMask = 0;
};

// A key press: code (27 Escape, 32 Space, ...) and the three modifier states. Two keys
// are equal only when all four match, so Shift+Escape is not Escape.
struct Key {
    int code = 0;
    bool alt = false;
    bool shift = false;
    bool control = false;
    bool operator==(const Key&) const = default;
};

inline constexpr Key escapeKey{27, false, false, false};
inline constexpr Key spaceKey{32, false, false, false};

// Keys without a character get codes above the character range; backends translate
// their own codes into these.
enum KeyCode : int { keyLeft = 0x110000, keyRight, keyPageUp, keyPageDown, keyHome, keyF12 };

// Failures of the display layer (no window, no renderer, ...).
class DisplayError : public std::runtime_error {
public:
    explicit DisplayError(const std::string& message) : std::runtime_error(message) {}
    // Shows the message to the user (standard error).
    void report() const;
};

class Console {
public:
    virtual ~Console() = default;
    virtual void open(const std::string& title, int width, int height, const Format& format, int pages) = 0;
    virtual void close() = 0;
    // Receives a whole frame (width x height pixels 0x00RRGGBB, rows without gaps).
    virtual void present(const std::uint32_t* pixels, int width, int height) = 0;
    virtual void update() = 0;
    virtual bool key() = 0;  // a key press is waiting; never blocks
    virtual Key read() = 0;  // takes the waiting key
    // Sleeps until input arrives or `milliseconds` have passed (a paused or stalled
    // player waits here instead of spinning). Headless: returns at once.
    virtual void wait(int /*milliseconds*/) {}
};

// The frame buffer: width x height pixels in system memory, kept locked for the run.
// Its format is always the player's 32-bit one; locking only hands out the pixels.
class Surface {
public:
    Surface(int width, int height, const Format& format);
    std::uint32_t* lock();
    void unlock();
    void copy(Console& console) const;
    int width() const { return width_; }
    int height() const { return height_; }
    const std::uint32_t* pixels() const { return pixels_.data(); }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

// A real window (SDL2): resizable, integer nearest-neighbour scaling, F11 full screen.
std::unique_ptr<Console> makeWindowConsole();
// No window: frames are kept for inspection; keys come only from queueKey.
std::unique_ptr<Console> makeHeadlessConsole();

}  // namespace vz
