#pragma once
// Builds small zip archives for tests with minizip's writer.
#include <string>
#include <utility>
#include <vector>

#include "assets/File.hpp"

namespace vz::test {

// Writes `path` holding each (member name, content) pair, deflated.
void writeZip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& members);

// Files are read from the archive while this lives, from the disk again after.
struct ArchiveMode {
    explicit ArchiveMode(const std::string& path) { File::switchToArchive(path); }
    ~ArchiveMode() { File::resetToDisk(); }
};

}  // namespace vz::test
