#include "tools/assetgen/WriteFile.hpp"

#include <fstream>
#include <stdexcept>

namespace vz::assetgen {

namespace {
void writeRaw(const std::string& path, const char* data, size_t size) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(data, std::streamsize(size));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + path);
}
}  // namespace

void writeFile(const std::string& path, const writers::Bytes& bytes) {
    writeRaw(path, reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

void writeFile(const std::string& path, const std::string& text) { writeRaw(path, text.data(), text.size()); }

}  // namespace vz::assetgen
