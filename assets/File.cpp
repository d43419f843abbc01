#include "assets/File.hpp"

#include <fcntl.h>
#include <minizip/unzip.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

#include "core/error.hpp"

namespace vz {

namespace {

struct ArchiveState {
    bool enabled = false;
    std::string name;
    std::array<unzFile, File::slotCount> slots{};
    std::array<std::string, File::slotCount> entryNames;
    const File::MemoryFiles* memory = nullptr;
};

ArchiveState& archive() {
    static ArchiveState state;
    return state;
}

constexpr int caseInsensitive = 2;

// Why `path` cannot be read as a regular file, or empty when it can be tried.
std::string notARegularFile(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::strerror(errno);
    if (!S_ISREG(status.st_mode)) return "not a regular file";
    return {};
}

}  // namespace

void File::switchToArchive(const std::string& name) {
    ArchiveState& a = archive();
    a.slots.fill(nullptr);
    a.enabled = true;
    a.name = name;
}

bool File::archiveMode() { return archive().enabled; }
const std::string& File::archiveName() { return archive().name; }

void File::resetToDisk() {
    ArchiveState& a = archive();
    for (auto& slot : a.slots) {
        if (slot) unzClose(slot);
        slot = nullptr;
    }
    a.enabled = false;
    a.name.clear();
}

void File::serveFromMemory(const MemoryFiles* files) { archive().memory = files; }
bool File::diskMode() { return !archive().enabled && !archive().memory; }

File::~File() {
    if (isOpen()) close();
}

bool File::isOpen() const { return disk_ != nullptr || slot_ >= 0 || memory_ != nullptr; }

namespace {

std::set<std::string>* openedNames = nullptr;

}  // namespace

void File::recordOpened(std::set<std::string>* names) { openedNames = names; }

bool File::open(const std::string& name) {
    if (isOpen()) close();
    ended_ = false;
    whyNot_.clear();
    const bool opened = archive().memory    ? openInMemory(name)
                        : archive().enabled ? openInArchive(name)
                                            : openOnDisk(name);
    if (opened && openedNames) openedNames->insert(name);
    return opened;
}

bool File::openOnDisk(const std::string& name) {
    // Opened without blocking, so that a FIFO cannot hold the player up before it is
    // seen to be no regular file.
    const int fd = ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        whyNot_ = std::strerror(errno);
        return false;
    }
    struct stat status {};
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(fd);
        whyNot_ = "not a regular file";
        return false;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    disk_ = ::fdopen(fd, "rb");
    if (!disk_) {
        whyNot_ = std::strerror(errno);
        ::close(fd);
        return false;
    }
    return true;
}

bool File::openInArchive(const std::string& name) {
    // Each open file gets its own archive handle in a free slot. When all slots are
    // taken the open fails rather than writing outside the slot table.
    ArchiveState& a = archive();
    int free = -1;
    for (int i = 0; i < slotCount; ++i) {
        if (!a.slots[i]) {
            free = i;
            break;
        }
    }
    if (free < 0) {
        whyNot_ = "more than " + std::to_string(slotCount) + " files are open in the archive " + a.name;
        return false;
    }
    if (std::string why = notARegularFile(a.name); !why.empty()) {
        whyNot_ = "the archive " + a.name + " cannot be opened: " + why;
        return false;
    }
    errno = 0;
    unzFile zip = unzOpen64(a.name.c_str());
    if (!zip) {
        whyNot_ = errno == EMFILE ? std::string("the archive ") + a.name + " cannot be opened: " + std::strerror(errno)
                                  : "the archive " + a.name + " is not a readable zip archive";
        return false;
    }
    a.slots[free] = zip;
    a.entryNames[free] = name;
    slot_ = free;
    archivePosition_ = 0;
    if (unzLocateFile(zip, name.c_str(), caseInsensitive) != UNZ_OK) {
        whyNot_ = "the archive " + a.name + " has no member " + name;
        close();  // the failed open gives its slot back
        return false;
    }
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(zip, &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK && (info.flag & 1) != 0) {
        whyNot_ = "the member " + name + " of the archive " + a.name + " is encrypted";
        close();
        return false;
    }
    if (unzOpenCurrentFile(zip) != UNZ_OK) {
        whyNot_ = "the member " + name + " of the archive " + a.name + " cannot be opened (damaged or not deflated)";
        close();
        return false;
    }
    entryOpen_ = true;
    return true;
}

bool File::openInMemory(const std::string& name) {
    auto found = archive().memory->find(name);
    if (found == archive().memory->end()) {
        whyNot_ = "no such file";
        return false;
    }
    memory_ = &found->second;
    memoryPosition_ = 0;
    return true;
}

void File::close() {
    if (disk_) {
        std::fclose(disk_);
        disk_ = nullptr;
    }
    if (slot_ >= 0) {
        ArchiveState& a = archive();
        if (a.slots[slot_]) {
            if (entryOpen_) unzCloseCurrentFile(a.slots[slot_]);
            unzClose(a.slots[slot_]);
        }
        a.slots[slot_] = nullptr;
        slot_ = -1;
        entryOpen_ = false;
    }
    memory_ = nullptr;
}

bool File::endReached() {
    if (ended_) return true;
    if (disk_) return std::feof(disk_) != 0 || std::ferror(disk_) != 0;
    if (slot_ >= 0) return !entryOpen_;
    if (memory_) return memoryPosition_ >= memory_->size();
    return true;
}

void File::failEntry(const std::string& what) const {
    const ArchiveState& a = archive();
    fatal("File : " + a.entryNames[slot_] + " in " + a.name + " : " + what);
}

// The member has been read to its declared end: closing it is where the library
// compares the CRC of what was inflated with the one the archive stores.
void File::finishEntry() {
    entryOpen_ = false;
    if (unzCloseCurrentFile(archive().slots[slot_]) == UNZ_CRCERROR) failEntry("the data fails its CRC check");
}

std::size_t File::readArchive(unsigned char* out, std::size_t want) {
    if (!entryOpen_) return 0;
    unzFile zip = archive().slots[slot_];
    std::size_t got = 0;
    while (got < want) {
        const unsigned chunk = static_cast<unsigned>(std::min<std::size_t>(want - got, 1u << 30));
        const int n = unzReadCurrentFile(zip, out + got, chunk);
        if (n < 0) failEntry("the data is damaged (error " + std::to_string(n) + ")");
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    archivePosition_ += static_cast<long>(got);
    if (unzeof(zip)) {
        finishEntry();
    } else if (got < want) {
        failEntry("the member holds fewer bytes than it declares");
    }
    return got;
}

std::size_t File::read(void* buffer, std::size_t itemSize, std::size_t itemCount) {
    if (itemSize == 0 || itemCount == 0) return 0;
    const std::size_t want = itemSize * itemCount;
    std::size_t result = 0;
    std::size_t bytes = 0;
    if (disk_) {
        result = std::fread(buffer, itemSize, itemCount, disk_);
        bytes = result * itemSize;
    } else if (slot_ >= 0) {
        bytes = readArchive(static_cast<unsigned char*>(buffer), want);
        result = bytes / itemCount;
    } else if (memory_) {
        bytes = std::min(want, memory_->size() - memoryPosition_);
        if (bytes > 0) std::memcpy(buffer, memory_->data() + memoryPosition_, bytes);
        memoryPosition_ += bytes;
        result = bytes / itemSize;
    }
    if (bytes < want) ended_ = true;
    return result;
}

bool File::reopenEntry() {
    unzFile zip = archive().slots[slot_];
    if (entryOpen_) unzCloseCurrentFile(zip);
    entryOpen_ = false;
    archivePosition_ = 0;
    entryOpen_ = unzLocateFile(zip, archive().entryNames[slot_].c_str(), caseInsensitive) == UNZ_OK &&
                 unzOpenCurrentFile(zip) == UNZ_OK;
    return entryOpen_;
}

void File::seek(long offset, int origin) {
    ended_ = false;
    if (disk_) {
        std::fseek(disk_, offset, origin == 0 ? SEEK_SET : origin == 1 ? SEEK_CUR : SEEK_END);
        return;
    }
    if (memory_) {
        const long base = origin == 0 ? 0 : origin == 1 ? static_cast<long>(memoryPosition_) : size();
        const long target = base + offset;
        if (target >= 0) memoryPosition_ = static_cast<std::size_t>(target);
        return;
    }
    if (slot_ < 0 || origin == 2) return;
    long target = origin == 0 ? offset : archivePosition_ + offset;
    if (target < 0 || target == archivePosition_) return;
    // Backward: reopen the entry at its start, then read forward to the target.
    if (target < archivePosition_ && !reopenEntry()) return;
    unsigned char scratch[4096];
    while (archivePosition_ < target && entryOpen_) {
        const std::size_t step = static_cast<std::size_t>(std::min<long>(target - archivePosition_, sizeof scratch));
        if (readArchive(scratch, step) == 0) break;
    }
}

long File::tell() {
    if (disk_) return std::ftell(disk_);
    if (memory_) return static_cast<long>(memoryPosition_);
    return slot_ >= 0 ? archivePosition_ : 0;
}

long File::size() {
    if (disk_) {
        // Only regular files are opened, so the size the system keeps is the count of
        // bytes a read to the end would find.
        struct stat status {};
        return ::fstat(::fileno(disk_), &status) == 0 ? static_cast<long>(status.st_size) : 0;
    }
    if (memory_) return static_cast<long>(memory_->size());
    if (slot_ < 0) return 0;
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(archive().slots[slot_], &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) return 0;
    return static_cast<long>(std::min<std::uint64_t>(info.uncompressed_size, LONG_MAX));
}

int File::readLine(char* buffer, int capacity) {
    int length = 0;
    while (length < capacity - 1) {
        unsigned char c;
        if (read(&c, 1, 1) == 0) break;
        if (c == '\n') break;
        buffer[length++] = static_cast<char>(c);
    }
    buffer[length] = '\0';
    return length;
}

bool readWholeFile(const std::string& name, std::vector<std::uint8_t>& bytes, std::string& why) {
    File file;
    bytes.clear();
    if (!file.open(name)) {
        why = file.whyNot();
        return false;
    }
    const long declared = file.size();
    if (declared > File::wholeFileLimit) {
        why = "it declares " + std::to_string(declared) + " bytes, more than the " +
              std::to_string(File::wholeFileLimit >> 20) + " MiB a file read whole may hold";
        return false;
    }
    constexpr std::size_t step = std::size_t{1} << 20;
    const auto wanted = static_cast<std::size_t>(std::max(declared, 0L));
    while (bytes.size() < wanted && !file.endReached()) {
        const std::size_t done = bytes.size();
        bytes.resize(done + std::min(step, wanted - done));
        const long before = file.tell();
        file.read(bytes.data() + done, 1, bytes.size() - done);
        bytes.resize(done + static_cast<std::size_t>(file.tell() - before));
    }
    bytes.shrink_to_fit();
    return true;
}

}  // namespace vz
