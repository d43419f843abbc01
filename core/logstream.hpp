#pragma once
// Process-wide holder of the diagnostic log "logfile.txt" in the working directory.
// Writers take the stream and end every line with `lend`, which writes character 10
// and flushes, so the file is complete up to the last finished line.
#include <memory>
#include <ostream>
#include <string>

namespace vz {

class logstream {
public:
    static logstream& instance();

    void reset();  // closing lines if open, then truncate the file and leave it closed
    void open();   // append mode plus opening lines; throws error on failure
    void close();  // closing lines, then close
    bool isOpen() const { return out_ != nullptr; }

    // The stream to write to. While no log is open, writes go to a sink that drops them.
    std::ostream& stream();

    static const char* const fileName;  // "logfile.txt"

private:
    logstream() = default;
    std::unique_ptr<std::ostream> out_;
};

// Line end of every log line: character 10, then flush.
std::ostream& lend(std::ostream& os);

// Shorthand for logstream::instance().stream().
std::ostream& logout();

// The 60-dash line that frames fatal details in the log.
extern const char* const dashLine;

// Writes dash line, text, dash line (each ended by lend): the frame used before fatal errors.
void logFramed(const std::string& text);

}  // namespace vz
