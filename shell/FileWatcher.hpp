#pragma once
// Tells the player when a file of the demo changed on disk. inotify watches the demo
// directory and every folder below it; where inotify is not available the files'
// times and sizes are compared, at most twice a second. Files the player writes
// itself (the log, screenshots) and editors' scratch files do not count.
#include <chrono>
#include <cstdint>
#include <map>
#include <string>

namespace vz {

class FileWatcher {
public:
    explicit FileWatcher(const std::string& directory);
    ~FileWatcher();
    FileWatcher(const FileWatcher&) = delete;
    FileWatcher& operator=(const FileWatcher&) = delete;

    // True once for every burst of changes since the last call; never blocks.
    bool changed();
    // Sleeps until a change comes or `milliseconds` have passed; true on a change.
    bool waitForChange(int milliseconds);

    // Names the player itself writes into the demo directory, or an editor leaves beside.
    static bool ignored(const std::string& fileName);

private:
    bool readEvents();
    bool pollFiles();
    std::map<std::string, std::pair<std::int64_t, std::int64_t>> snapshot() const;

    std::string directory_;
    int fd_ = -1;
    std::map<std::string, std::pair<std::int64_t, std::int64_t>> files_;  // polling: time and size by path
    std::chrono::steady_clock::time_point lastPoll_{};
};

}  // namespace vz
