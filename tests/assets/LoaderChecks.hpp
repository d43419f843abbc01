#pragma once
// Checks shared by the picture loader tests: failures with their exact log lines and
// exception texts, and pixel comparisons with a tolerance for lossy formats.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "shell/error.hpp"
#include "shell/logstream.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {

// Runs `load` with a fresh log, expects error(message), and returns what it logged
// (the log's own opening and closing lines left out).
inline std::vector<std::string> failureLog(const std::function<void()>& load, const std::string& message) {
    startLog();
    try {
        load();
        ADD_FAILURE() << "expected error(\"" << message << "\")";
    } catch (const error& e) {
        EXPECT_EQ(e.what(), message);
    }
    std::vector<std::string> lines = stopLogAndReadLines();
    return {lines.begin() + 2, lines.end() - 3};
}

inline std::vector<std::string> framed(const std::string& text) { return {dashLine, text, dashLine}; }

// Whether two 0x00RRGGBB colours differ by at most `tolerance` in every channel.
inline bool nearColor(std::uint32_t a, std::uint32_t b, int tolerance) {
    for (int shift = 0; shift < 24; shift += 8) {
        int d = static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF);
        if (d > tolerance || d < -tolerance) return false;
    }
    return (a >> 24) == (b >> 24);
}

}  // namespace vz::test
