#include "support/PlayerRun.hpp"

#include <fcntl.h>
#include <png.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "support/TestSupport.hpp"

extern char** environ;

namespace vz::test {

RunResult runPlayer(const std::vector<std::string>& args, const std::string& cwd,
                    const std::vector<std::string>& environment) {
    const std::string outFile = cwd + "/.player-stdout", errFile = cwd + "/.player-stderr";
    // `env` puts the extra entries over the inherited ones, then becomes the player.
    std::vector<std::string> argv{"env"};
    argv.insert(argv.end(), environment.begin(), environment.end());
    argv.push_back(VZ_PLAYER_PATH);
    argv.insert(argv.end(), args.begin(), args.end());
    std::vector<char*> cargv;
    for (auto& a : argv) cargv.push_back(a.data());
    cargv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, cwd.c_str());
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&actions, 2, errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = -1;
    const bool started = posix_spawnp(&pid, cargv[0], &actions, nullptr, cargv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    if (!started) throw std::runtime_error(std::string("cannot start ") + VZ_PLAYER_PATH);
    int wstatus = 0;
    waitpid(pid, &wstatus, 0);
    RunResult result;
    result.status = WIFEXITED(wstatus) ? WEXITSTATUS(wstatus) : 128 + WTERMSIG(wstatus);
    result.standardError = readFile(errFile);
    result.standardOutput = readFile(outFile);
    std::remove(errFile.c_str());
    std::remove(outFile.c_str());
    return result;
}

Picture readPng(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) throw std::runtime_error("cannot read " + path);
    image.format = PNG_FORMAT_BGRA;
    Picture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.pixels.resize(static_cast<std::size_t>(image.width) * image.height);
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr))
        throw std::runtime_error("cannot decode " + path);
    for (auto& p : picture.pixels) p &= 0x00FFFFFF;  // opaque alpha is not part of the pixel
    return picture;
}

std::vector<std::string> maskedLogLines(const std::string& path) {
    std::vector<std::string> lines = readLines(path);
    for (auto& line : lines) {
        for (const char* prefix : {"Opening log on ", "Closing log at "}) {
            if (line.rfind(prefix, 0) == 0) line = std::string(prefix) + "DATE";
        }
    }
    return lines;
}

std::uint64_t checksum(const Picture& picture) {
    std::uint64_t h = 1469598103934665603ull;
    for (std::uint32_t p : picture.pixels) {
        for (int i = 0; i < 4; ++i) {
            h ^= (p >> (8 * i)) & 0xFF;
            h *= 1099511628211ull;
        }
    }
    return h;
}

}  // namespace vz::test
