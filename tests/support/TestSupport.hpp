#pragma once
// Helpers shared by the tests: scratch directories, small files, the log's lines.
#include <filesystem>
#include <functional>
#include <stdexcept>
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

// The message of the vz::error that `action` raises, or "no error" when it raises none.
std::string errorOf(const std::function<void()>& action);

// The three lines that frame a message in the log before a fatal error.
std::vector<std::string> framed(const std::string& message);

// Opens the log afresh in the current directory, and returns its lines after closing it.
void startLog();
std::vector<std::string> stopLogAndReadLines();

}  // namespace vz::test
