#include "shell/sound/MusicFile.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "assets/File.hpp"

namespace vz {

bool readMusicFile(const std::string& name, std::vector<std::uint8_t>& bytes) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(name, ignored)) {
        std::ifstream in(name, std::ios::binary);
        if (in) {
            bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            if (!in.bad()) return true;
        }
    }
    return File::archiveMode() && readWholeFile(name, bytes);
}

}  // namespace vz
