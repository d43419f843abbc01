#include "core/logstream.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <ext/stdio_filebuf.h>

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

// An output stream over a file descriptor, which it closes when it goes.
class DescriptorStream : public std::ostream {
public:
    explicit DescriptorStream(int fd) : std::ostream(nullptr), buffer_(fd, std::ios::out) { rdbuf(&buffer_); }

private:
    __gnu_cxx::stdio_filebuf<char> buffer_;
};

// Opens the log for writing with `flags` added, or returns -1 with the reason. The log
// goes only into a regular file that is not marked read-only, whoever runs the player,
// and never through a symbolic link: a downloaded demo could point one at any file of
// the user. An existing file keeps its mode; a new one is made readable by all.
int openLogFile(int flags, std::string& why) {
    constexpr const char* symbolicLink = "a symbolic link, which the player does not follow";
    struct stat status {};
    if (::lstat(logstream::fileName, &status) == 0) {
        if (S_ISLNK(status.st_mode))
            why = symbolicLink;
        else if (!S_ISREG(status.st_mode))
            why = "not a regular file";
        else if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
            why = "the file is read-only";
        if (!why.empty()) return -1;
    }
    // Not blocking, so that a FIFO put in its place between the two looks fails at once.
    const int fd = ::open(logstream::fileName, flags | O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644);
    if (fd < 0) {
        why = errno == ELOOP ? symbolicLink : std::strerror(errno);
        return -1;
    }
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(fd);
        why = "not a regular file";
        return -1;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return fd;
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
    // A file that cannot be truncated is left as it is: open() then refuses it.
    std::string why;
    const int fd = openLogFile(O_TRUNC, why);
    if (fd >= 0) ::close(fd);
}

void logstream::open() {
    if (out_) return;
    std::string why;
    const int fd = openLogFile(O_APPEND, why);
    if (fd < 0) throw error("logstream: could not open file for writing", std::string(fileName) + ": " + why);
    out_ = std::make_unique<DescriptorStream>(fd);
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
