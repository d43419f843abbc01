#pragma once
// The player's one fatal exception. It carries a single message; only the entry
// function catches it, logs "exeption : " + message and shuts the player down.
#include <stdexcept>
#include <string>

namespace vz {

class error : public std::runtime_error {
public:
    explicit error(const std::string& message) : std::runtime_error(message) {}
    const char* message() const noexcept { return what(); }
};

// The one way a fatal failure is reported: `logText` goes to the log between two dash
// lines, then error(message) is raised. Most failures log the text they raise.
[[noreturn]] void fatal(const std::string& logText, const std::string& message);
[[noreturn]] inline void fatal(const std::string& text) { fatal(text, text); }

}  // namespace vz
