#include "core/logstream.hpp"

#include <sys/stat.h>
#include <ctime>
#include <fstream>

#include "core/error.hpp"

namespace vz {

const char* const logstream::fileName = "logfile.txt";
const char* const dashLine = "------------------------------------------------------------";

namespace {

// The C library's local-time text ("Sat Nov 21 14:03:04 2026") without its line end.
std::string localTimeText() {
    std::time_t now = std::time(nullptr);
    std::string text = std::asctime(std::localtime(&now));
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

// A stream that discards everything: used while no log file is open, so that code
// running outside a normal start-up (tests, tools) can write without checking.
class NullBuffer : public std::streambuf {
protected:
    int overflow(int c) override { return c == EOF ? 0 : c; }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

std::ostream& nullStream() {
    static NullBuffer buffer;
    static std::ostream stream(&buffer);
    return stream;
}

void writeClosingLines(std::ostream& os) {
    os << lend << "Closing log at " << localTimeText() << lend << dashLine << lend;
}

}  // namespace

logstream& logstream::instance() {
    static logstream* holder = new logstream();  // lives until the process ends
    return *holder;
}

void logstream::reset() {
    if (out_) {
        writeClosingLines(*out_);
        out_.reset();
    }
    std::ofstream truncate(fileName, std::ios::out | std::ios::trunc);
    truncate.close();
    ::chmod(fileName, 0644);
}

void logstream::open() {
    if (out_) return;
    auto file = std::make_unique<std::ofstream>(fileName, std::ios::out | std::ios::app);
    if (!*file) throw error("logstream: could not open file for writing");
    out_ = std::move(file);
    *out_ << "Opening log on " << localTimeText() << lend << dashLine << lend;
}

void logstream::close() {
    if (!out_) return;
    writeClosingLines(*out_);
    out_.reset();
}

std::ostream& logstream::stream() { return out_ ? *out_ : nullStream(); }

std::ostream& lend(std::ostream& os) {
    os.put('\n');
    os.flush();
    return os;
}

std::ostream& logout() { return logstream::instance().stream(); }

void logFramed(const std::string& text) {
    std::ostream& os = logout();
    os << dashLine << lend << text << lend << dashLine << lend;
}

}  // namespace vz
