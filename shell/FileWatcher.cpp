#include "shell/FileWatcher.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

namespace vz {

namespace fs = std::filesystem;

namespace {

constexpr auto pollInterval = std::chrono::milliseconds(500);
constexpr std::uint32_t watchedEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_CREATE | IN_DELETE;

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

bool FileWatcher::ignored(const std::string& fileName) {
    return fileName == "logfile.txt" || fileName.rfind("shot-", 0) == 0 || fileName.empty() || fileName[0] == '.' ||
           endsWith(fileName, "~") || endsWith(fileName, ".swp");
}

FileWatcher::FileWatcher(const std::string& directory) : directory_(directory) {
    fd_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (fd_ >= 0) {
        std::error_code ec;
        bool watching = inotify_add_watch(fd_, directory.c_str(), watchedEvents) >= 0;
        for (fs::recursive_directory_iterator it(directory, ec), end; watching && !ec && it != end; it.increment(ec))
            if (it->is_directory(ec)) watching = inotify_add_watch(fd_, it->path().c_str(), watchedEvents) >= 0;
        if (watching) return;
        close(fd_);
        fd_ = -1;
    }
    files_ = snapshot();
    lastPoll_ = std::chrono::steady_clock::now();
}

FileWatcher::~FileWatcher() {
    if (fd_ >= 0) close(fd_);
}

bool FileWatcher::changed() { return fd_ >= 0 ? readEvents() : pollFiles(); }

bool FileWatcher::waitForChange(int milliseconds) {
    if (fd_ < 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return pollFiles();
    }
    pollfd watch{fd_, POLLIN, 0};
    if (poll(&watch, 1, milliseconds) <= 0) return false;
    return readEvents();
}

bool FileWatcher::readEvents() {
    alignas(inotify_event) char buffer[4096];
    bool any = false;
    for (;;) {
        const ssize_t got = read(fd_, buffer, sizeof buffer);
        if (got <= 0) return any;
        for (ssize_t at = 0; at < got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
            const std::string name = event->len > 0 ? std::string(event->name) : std::string();
            if ((event->mask & IN_ISDIR) == 0 && !ignored(name)) any = true;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
}

bool FileWatcher::pollFiles() {
    const auto now = std::chrono::steady_clock::now();
    if (now - lastPoll_ < pollInterval) return false;
    lastPoll_ = now;
    auto current = snapshot();
    const bool differs = current != files_;
    files_ = std::move(current);
    return differs;
}

std::map<std::string, std::pair<std::int64_t, std::int64_t>> FileWatcher::snapshot() const {
    std::map<std::string, std::pair<std::int64_t, std::int64_t>> files;
    std::error_code ec;
    for (fs::recursive_directory_iterator it(directory_, ec), end; !ec && it != end; it.increment(ec)) {
        if (!it->is_regular_file(ec) || ignored(it->path().filename().string())) continue;
        const auto time = it->last_write_time(ec).time_since_epoch().count();
        files[it->path().string()] = {static_cast<std::int64_t>(time), static_cast<std::int64_t>(it->file_size(ec))};
    }
    return files;
}

}  // namespace vz
