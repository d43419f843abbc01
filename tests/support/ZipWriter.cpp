#include "support/ZipWriter.hpp"

#include <minizip/zip.h>

#include <stdexcept>

namespace vz::test {

void writeZip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& members) {
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!zip) throw std::runtime_error("cannot create " + path);
    for (const auto& [name, content] : members) {
        zip_fileinfo info{};
        zipOpenNewFileInZip64(zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                              Z_DEFAULT_COMPRESSION, 0);
        zipWriteInFileInZip(zip, content.data(), static_cast<unsigned>(content.size()));
        zipCloseFileInZip(zip);
    }
    zipClose(zip, nullptr);
}

}  // namespace vz::test
