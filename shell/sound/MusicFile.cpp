#include "shell/sound/MusicFile.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "assets/File.hpp"

namespace vz {

namespace {

// A music file on the disk, refused beyond the size any file read whole may have.
bool readDiskFile(const std::string& name, std::vector<std::uint8_t>& bytes, std::string& why) {
    std::error_code ec;
    const auto size = std::filesystem::file_size(name, ec);
    if (!ec && size > static_cast<std::uintmax_t>(File::wholeFileLimit)) {
        why = "it holds " + std::to_string(size) + " bytes, more than the " +
              std::to_string(File::wholeFileLimit >> 20) + " MiB a file read whole may hold";
        return false;
    }
    std::ifstream in(name, std::ios::binary);
    if (in) bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad() || !in.is_open()) {
        why = "it cannot be read";
        return false;
    }
    return true;
}

}  // namespace

bool readMusicFile(const std::string& name, std::vector<std::uint8_t>& bytes, std::string& why) {
    namespace fs = std::filesystem;
    std::error_code ec;
    // Files served from memory stand in for the disk and the archive alike.
    const bool fromMemory = !File::diskMode() && !File::archiveMode();
    if (!fromMemory && fs::is_regular_file(name, ec)) return readDiskFile(name, bytes, why);
    if (!File::diskMode()) return readWholeFile(name, bytes, why);
    why = fs::exists(name, ec) ? "not a regular file" : "no such file";
    return false;
}

}  // namespace vz
