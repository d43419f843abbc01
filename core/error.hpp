#pragma once
// The player's one fatal exception. It carries a single message; only the entry
// function catches it, logs "exeption : " + message and shuts the player down.
//
// The message is kept exactly as the log has always shown it ("loadGif error"), so two
// more things travel beside it for the person at the terminal, who sees one line on
// standard error: where the failure was found (a "file:line" of the script or
// configuration being read) and the detail the message leaves out (the file at fault
// and what is wrong with it).
#include <stdexcept>
#include <string>

namespace vz {

class error : public std::runtime_error {
public:
    explicit error(const std::string& message, std::string detail = {})
        : std::runtime_error(message), detail_(std::move(detail)) {}
    const char* message() const noexcept { return what(); }
    const std::string& detail() const { return detail_; }
    const std::string& where() const { return where_; }
    // Records the place of the failure unless a reader closer to it already did: the
    // innermost file being read is the most useful one to name.
    void locate(const std::string& where) {
        if (where_.empty()) where_ = where;
    }

private:
    std::string detail_;
    std::string where_;
};

// The one way a fatal failure is reported: `logText` goes to the log between two dash
// lines, then error(message, detail) is raised. Most failures log the text they raise.
[[noreturn]] void fatal(const std::string& logText, const std::string& message, const std::string& detail = {});
[[noreturn]] inline void fatal(const std::string& text) { fatal(text, text); }

// The one line standard error shows for `e`: "vzplayer: WHERE: MESSAGE (DETAIL)", the
// parts that are unknown left out.
std::string errorLine(const error& e);

}  // namespace vz
