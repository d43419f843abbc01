#include <cstdio>

#include "shell/display/Display.hpp"

namespace vz {

Surface::Surface(int width, int height, const Format&)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0u) {}

std::uint32_t* Surface::lock() { return pixels_.data(); }

void Surface::unlock() {}

void Surface::copy(Console& console) const { console.present(pixels_.data(), width_, height_); }

void DisplayError::report() const { std::fprintf(stderr, "vzplayer: display error: %s\n", what()); }

}  // namespace vz
