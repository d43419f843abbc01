#include "support/TestSupport.hpp"

#include <fstream>
#include <random>
#include <sstream>

#include "core/error.hpp"
#include "core/logstream.hpp"

namespace vz::test {

namespace fs = std::filesystem;

ScratchDir::ScratchDir() {
    previous_ = fs::current_path();
    std::random_device rd;
    for (;;) {
        path_ = fs::temp_directory_path() / ("vz-test-" + std::to_string(rd()));
        if (fs::create_directory(path_)) break;
    }
    fs::current_path(path_);
}

ScratchDir::~ScratchDir() {
    if (logstream::instance().isOpen()) logstream::instance().close();
    fs::current_path(previous_);
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void writeFile(const fs::path& path, const std::string& content) {
    std::ofstream out(path, std::ios::binary);
    out << content;
}

void writeBytes(const fs::path& path, const std::vector<unsigned char>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> readLines(const fs::path& path) {
    std::vector<std::string> lines;
    std::istringstream in(readFile(path));
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const error& e) {
        return e.message();
    }
    return "no error";
}

std::vector<std::string> framed(const std::string& message) { return {dashLine, message, dashLine}; }

void startLog() {
    logstream::instance().reset();
    logstream::instance().open();
}

std::vector<std::string> stopLogAndReadLines() {
    logstream::instance().close();
    return readLines(logstream::fileName);
}

}  // namespace vz::test
