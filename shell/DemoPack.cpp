// --pack: a demo directory into one zip archive that the player plays.
#include <minizip/zip.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <vector>

#include "assets/File.hpp"
#include "shell/DemoCheck.hpp"

namespace vz {

namespace fs = std::filesystem;

namespace {

// The name a file has inside the demo directory, or empty for a name that leads out of it.
std::string memberName(const std::string& named) {
    const fs::path path = fs::path(named).lexically_normal();
    if (path.empty() || path.is_absolute() || *path.begin() == "..") return {};
    return path.generic_string();
}

bool addMember(zipFile zip, const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (!in.eof() && in.fail()) return false;
    zip_fileinfo info{};
    if (zipOpenNewFileInZip64(zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 9, 1) != ZIP_OK)
        return false;
    const bool wrote =
        bytes.empty() || zipWriteInFileInZip(zip, bytes.data(), static_cast<unsigned>(bytes.size())) == ZIP_OK;
    return zipCloseFileInZip(zip) == ZIP_OK && wrote;
}

int fail(const std::string& what) {
    std::fprintf(stderr, "vzplayer: --pack: %s\n", what.c_str());
    return 1;
}

}  // namespace

int packDemo(const std::string& directory, const std::string& output, bool force) {
    const fs::path out = fs::absolute(output);
    std::error_code ec;
    if (fs::exists(out, ec) && !force) return fail(out.string() + " exists (--force overwrites it)");
    if (!fs::is_directory(directory, ec)) return fail("no demo directory at " + directory);
    fs::current_path(directory);
    const ScriptCheck check = checkDemo();
    if (printErrors(check) > 0) return fail("the demo has errors; nothing was packed");
    if (File::archiveMode()) return fail("config.txt reads its files from an archive already (ARCHIVE)");

    std::vector<std::string> members{"config.txt"};
    for (const std::string& named : check.files) {
        const std::string name = memberName(named);
        if (name.empty()) return fail(named + " lies outside the demo directory");
        if (name != "config.txt" && fs::is_regular_file(name, ec)) members.push_back(name);
    }
    // Written beside the output and moved over it once complete.
    const fs::path partial = out.string() + ".partial";
    zipFile zip = zipOpen64(partial.c_str(), APPEND_STATUS_CREATE);
    if (!zip) return fail("cannot write " + partial.string());
    bool written = true;
    for (const std::string& name : members) written = written && addMember(zip, name);
    written = zipClose(zip, nullptr) == ZIP_OK && written;
    if (!written) {
        fs::remove(partial, ec);
        return fail("cannot write " + out.string());
    }
    fs::rename(partial, out, ec);
    if (ec) return fail("cannot write " + out.string() + ": " + ec.message());

    std::printf("vzplayer: packed %zu files into %s\n", members.size(), out.string().c_str());
    std::set<std::string> leftOut;
    for (fs::recursive_directory_iterator it(".", ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = memberName(it->path().string());
        if (it->is_regular_file(ec) && std::find(members.begin(), members.end(), name) == members.end())
            leftOut.insert(name);
    }
    for (const std::string& name : leftOut) std::printf("left out: %s\n", name.c_str());
    return 0;
}

}  // namespace vz
