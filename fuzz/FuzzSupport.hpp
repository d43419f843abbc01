#pragma once
// What the fuzz targets share: files served from memory instead of the disk, and inputs
// that hold several named files.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "assets/File.hpp"

namespace vz::fuzz {

// Serves `files` to every File opened while it lives, then goes back to the disk.
class MemoryFiles {
public:
    explicit MemoryFiles(File::MemoryFiles files) : files_(std::move(files)) { File::serveFromMemory(&files_); }
    ~MemoryFiles() { File::serveFromMemory(nullptr); }
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;

private:
    File::MemoryFiles files_;
};

inline std::vector<std::uint8_t> bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

// An input holding several files: the bytes up to the first line "@@@ NAME" are the file
// `first`, and each such line starts the file NAME. Files already in `files` are
// replaced, so an input can rewrite a fixed asset.
inline void splitFiles(const std::uint8_t* data, std::size_t size, const std::string& first, File::MemoryFiles& files) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    std::string name = first;
    std::vector<std::uint8_t> content;
    for (std::size_t at = 0; at < input.size();) {
        const std::size_t lineEnd = std::min(input.find('\n', at), input.size());
        const std::size_t next = std::min(lineEnd + 1, input.size());
        if (input.substr(at, 4) == "@@@ ") {
            files[name] = std::move(content);
            content.clear();
            name = std::string(input.substr(at + 4, lineEnd - at - 4));
        } else {
            content.insert(content.end(), input.begin() + at, input.begin() + next);
        }
        at = next;
    }
    files[name] = std::move(content);
}

}  // namespace vz::fuzz
