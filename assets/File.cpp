#include "assets/File.hpp"

#include <minizip/unzip.h>
#include <algorithm>
#include <array>

namespace vz {

namespace {

struct ArchiveState {
    bool enabled = false;
    std::string name;
    std::array<unzFile, File::slotCount> slots{};
    std::array<std::string, File::slotCount> entryNames;
};

ArchiveState& archive() {
    static ArchiveState state;
    return state;
}

constexpr int caseInsensitive = 2;

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

File::~File() {
    if (isOpen()) close();
}

bool File::isOpen() const { return disk_ != nullptr || slot_ >= 0; }

bool File::open(const std::string& name) {
    if (isOpen()) close();
    ArchiveState& a = archive();
    if (!a.enabled) {
        disk_ = std::fopen(name.c_str(), "rb");
        return disk_ != nullptr;
    }
    // Archive mode: each open file gets its own archive handle in a free slot. When all
    // slots are taken the open fails rather than writing outside the slot table.
    int free = -1;
    for (int i = 0; i < slotCount; ++i) {
        if (!a.slots[i]) {
            free = i;
            break;
        }
    }
    if (free < 0) return false;
    unzFile zip = unzOpen64(a.name.c_str());
    if (!zip) return false;
    a.slots[free] = zip;
    a.entryNames[free] = name;
    slot_ = free;
    archivePosition_ = 0;
    if (unzLocateFile(zip, name.c_str(), caseInsensitive) != UNZ_OK || unzOpenCurrentFile(zip) != UNZ_OK) {
        close();  // the failed open gives its slot back
        return false;
    }
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
            unzCloseCurrentFile(a.slots[slot_]);
            unzClose(a.slots[slot_]);
        }
        a.slots[slot_] = nullptr;
        slot_ = -1;
    }
}

bool File::endReached() {
    if (disk_) return std::feof(disk_) != 0;
    if (slot_ >= 0) return unzeof(archive().slots[slot_]) != 0;
    return true;
}

std::size_t File::read(void* buffer, std::size_t itemSize, std::size_t itemCount) {
    if (disk_) return std::fread(buffer, itemSize, itemCount, disk_);
    if (slot_ < 0 || itemCount == 0) return 0;
    std::size_t want = itemSize * itemCount;
    std::size_t got = 0;
    auto* out = static_cast<unsigned char*>(buffer);
    while (got < want) {
        unsigned chunk = static_cast<unsigned>(std::min<std::size_t>(want - got, 1u << 30));
        int n = unzReadCurrentFile(archive().slots[slot_], out + got, chunk);
        if (n <= 0) break;
        got += static_cast<std::size_t>(n);
    }
    archivePosition_ += static_cast<long>(got);
    return got / itemCount;
}

bool File::reopenEntry() {
    unzFile zip = archive().slots[slot_];
    unzCloseCurrentFile(zip);
    archivePosition_ = 0;
    return unzLocateFile(zip, archive().entryNames[slot_].c_str(), caseInsensitive) == UNZ_OK &&
           unzOpenCurrentFile(zip) == UNZ_OK;
}

void File::seek(long offset, int origin) {
    if (disk_) {
        std::fseek(disk_, offset, origin == 0 ? SEEK_SET : origin == 1 ? SEEK_CUR : SEEK_END);
        return;
    }
    if (slot_ < 0 || origin == 2) return;
    long target = origin == 0 ? offset : archivePosition_ + offset;
    if (target < 0 || target == archivePosition_) return;
    // Backward: reopen the entry at its start, then read forward to the target.
    if (target < archivePosition_ && !reopenEntry()) return;
    unsigned char scratch[4096];
    while (archivePosition_ < target) {
        std::size_t step = static_cast<std::size_t>(std::min<long>(target - archivePosition_, sizeof scratch));
        if (read(scratch, 1, step) == 0) break;
    }
}

long File::tell() {
    if (disk_) return std::ftell(disk_);
    return slot_ >= 0 ? archivePosition_ : 0;
}

long File::size() {
    if (disk_) {
        // Count to the end from here, then come back: position + count is the size.
        long position = std::ftell(disk_);
        long count = 0;
        unsigned char buf[65536];
        std::size_t n;
        while ((n = std::fread(buf, 1, sizeof buf, disk_)) > 0) count += static_cast<long>(n);
        std::clearerr(disk_);
        std::fseek(disk_, position, SEEK_SET);
        return position + count;
    }
    if (slot_ < 0) return 0;
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(archive().slots[slot_], &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) return 0;
    return static_cast<long>(info.uncompressed_size);
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

bool readWholeFile(const std::string& name, std::vector<std::uint8_t>& bytes) {
    File file;
    if (!file.open(name)) return false;
    long n = file.size();
    bytes.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    long start = file.tell();
    if (!bytes.empty()) file.read(bytes.data(), 1, bytes.size());
    bytes.resize(static_cast<std::size_t>(file.tell() - start));
    file.close();
    return true;
}

}  // namespace vz
