#pragma once
// The one way the player reads data files: from the disk, or, once the archive mode
// is switched on, from inside a zip archive. Readers use the same operations either
// way and never learn which one served them.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace vz {

class File {
public:
    static constexpr int slotCount = 32;

    File() = default;
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    // Every file opened after this call comes from the archive `name`; never undone.
    static void switchToArchive(const std::string& name);
    static bool archiveMode();
    static const std::string& archiveName();
    // Back to disk mode. Only tests and the command line (before start-up) need it.
    static void resetToDisk();

    bool open(const std::string& name);
    void close();
    bool isOpen() const;
    bool endReached();
    // Disk: whole items read. Archive: bytes read / itemCount. Callers test for zero only.
    std::size_t read(void* buffer, std::size_t itemSize, std::size_t itemCount);
    // origin 0 = start, 1 = current, 2 = end (ignored in archive mode).
    void seek(long offset, int origin);
    long size();
    long tell();
    // One line into buffer (capacity bytes incl. NUL); line feed not stored.
    int readLine(char* buffer, int capacity);

private:
    bool reopenEntry();

    std::FILE* disk_ = nullptr;
    int slot_ = -1;
    long archivePosition_ = 0;
};

// Reads a whole file through File (disk or archive). False when it cannot be opened.
bool readWholeFile(const std::string& name, std::vector<std::uint8_t>& bytes);

}  // namespace vz
