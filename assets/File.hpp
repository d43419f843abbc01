#pragma once
// The one way the player reads data files: from the disk, or, once the archive mode
// is switched on, from inside a zip archive. Readers use the same operations either
// way and never learn which one served them.
//
// Whatever a demo names, reading it ends: only regular files are opened (a directory,
// a FIFO or a device named as a script is refused), a read that returns nothing ends
// the file, and an archive member that is damaged, fails its CRC check or holds fewer
// bytes than it declares is a fatal error naming the archive and the member.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vz {

class File {
public:
    static constexpr int slotCount = 32;
    // The largest file read whole (pictures, raw data, music from an archive): a layer of
    // the largest size at 4 bytes a pixel, and 1 MiB of headers and tables.
    static constexpr std::int64_t wholeFileLimit = (std::int64_t{1} << 28) + (std::int64_t{1} << 20);

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

    // Files held in memory, by exact name, that serve every open while set (instead of
    // the disk or the archive); null goes back. For tests and fuzzing, which play whole
    // demos without touching the disk. The map must outlive the files opened from it.
    using MemoryFiles = std::map<std::string, std::vector<std::uint8_t>>;
    static void serveFromMemory(const MemoryFiles* files);
    // True while files come from the disk (neither an archive nor memory serves them).
    static bool diskMode();
    // While set, the name of every file opened is added to `names` (null stops it): how
    // the script checker learns which files a demo uses.
    static void recordOpened(std::set<std::string>* names);

    // False when the file cannot be opened; whyNot() then says why.
    bool open(const std::string& name);
    const std::string& whyNot() const { return whyNot_; }
    void close();
    bool isOpen() const;
    bool endReached();
    // Disk: whole items read. Archive: bytes read / itemCount. Callers test for zero only.
    std::size_t read(void* buffer, std::size_t itemSize, std::size_t itemCount);
    // origin 0 = start, 1 = current, 2 = end (ignored in archive mode).
    void seek(long offset, int origin);
    // The size the file declares: the disk's, or an archive member's uncompressed size.
    long size();
    long tell();
    // One line into buffer (capacity bytes incl. NUL); line feed not stored.
    int readLine(char* buffer, int capacity);

private:
    bool openOnDisk(const std::string& name);
    bool openInArchive(const std::string& name);
    bool openInMemory(const std::string& name);
    std::size_t readArchive(unsigned char* out, std::size_t want);
    void finishEntry();
    bool reopenEntry();
    [[noreturn]] void failEntry(const std::string& what) const;

    std::FILE* disk_ = nullptr;
    int slot_ = -1;
    bool entryOpen_ = false;  // archive: the member is open and not yet read to its end
    long archivePosition_ = 0;
    const std::vector<std::uint8_t>* memory_ = nullptr;
    std::size_t memoryPosition_ = 0;
    bool ended_ = false;  // a read came back with less than it asked for
    std::string whyNot_;
};

// Reads a whole file through File (disk, archive or memory), in bounded steps up to its
// declared size, so that a member declaring far more than it holds costs only what it
// holds. False when it cannot be opened or declares more than File::wholeFileLimit
// bytes, with the reason in `why`.
bool readWholeFile(const std::string& name, std::vector<std::uint8_t>& bytes, std::string& why);

}  // namespace vz
