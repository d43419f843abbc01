#pragma once
// Helpers shared by the tests: scratch directories, small files, the log's lines.
#include <filesystem>
#include <string>
#include <vector>

namespace vz::test {

// A fresh empty directory that becomes the working directory for the test's life, so
// that "logfile.txt" and relative data files land in it. Restores the old one after.
class ScratchDir {
public:
    ScratchDir();
    ~ScratchDir();
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    std::filesystem::path previous_;
};

void writeFile(const std::filesystem::path& path, const std::string& content);
void writeBytes(const std::filesystem::path& path, const std::vector<unsigned char>& bytes);
std::string readFile(const std::filesystem::path& path);
std::vector<std::string> readLines(const std::filesystem::path& path);

// Opens the log afresh in the current directory, and returns its lines after closing it.
void startLog();
std::vector<std::string> stopLogAndReadLines();

}  // namespace vz::test
