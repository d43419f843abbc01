// The file layer over minizip on arbitrary bytes taken as the demo's archive: the
// members it lists (and a few names it may not hold) opened, read, sought, sized, read
// line by line and whole, and read by the tokenizer.
#include <minizip/unzip.h>
#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "assets/File.hpp"
#include "core/error.hpp"
#include "script/TextParser.hpp"

namespace {

// Members larger than this are opened and sized but not read through: a small input can
// declare gigabytes, and reading them only spends the fuzzer's time.
constexpr long readLimit = 1 << 22;

std::vector<std::string> memberNames(const std::string& archive) {
    std::vector<std::string> names = {"main.txt", "config.txt", "missing.pcx"};
    unzFile zip = unzOpen64(archive.c_str());
    if (!zip) return names;
    int listed = 0;
    for (int status = unzGoToFirstFile(zip); status == UNZ_OK && listed < 8; status = unzGoToNextFile(zip), ++listed) {
        char name[256];
        if (unzGetCurrentFileInfo64(zip, nullptr, name, sizeof name, nullptr, 0, nullptr, 0) == UNZ_OK)
            names.push_back(name);
    }
    unzClose(zip);
    return names;
}

void exercise(const std::string& name) {
    vz::File file;
    if (!file.open(name)) return;
    const long size = file.size();
    if (size > readLimit) return;
    char buffer[512];
    file.read(buffer, 1, 100);
    file.seek(7, 1);
    file.read(buffer, 4, 3);
    file.seek(3, 0);  // backward: the member is opened again
    file.read(buffer, 1, sizeof buffer);
    file.seek(size + 10, 0);
    file.endReached();
    file.seek(0, 0);
    for (int lines = 0; lines < 4096 && !file.endReached(); ++lines) file.readLine(buffer, sizeof buffer);
    file.close();

    std::vector<std::uint8_t> bytes;
    std::string why;
    vz::readWholeFile(name, bytes, why);

    vz::TextParser parser;
    parser.open(name);
    for (int lines = 0; lines < 4096 && parser.nextLine(); ++lines)
        while (parser.tokensLeft()) parser.getToken();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string archive = "/tmp/vz-fuzz-archive-" + std::to_string(::getpid()) + ".zip";
    std::FILE* out = std::fopen(archive.c_str(), "wb");
    if (!out) return 0;
    std::fwrite(data, 1, size, out);
    std::fclose(out);
    vz::File::switchToArchive(archive);
    for (const std::string& name : memberNames(archive)) {
        try {
            exercise(name);
        } catch (const vz::error&) {
        }
    }
    vz::File::resetToDisk();
    std::remove(archive.c_str());
    return 0;
}
