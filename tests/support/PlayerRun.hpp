#pragma once
// Runs the built vzplayer binary as a separate process, the way a user does, and reads
// back what it left: exit status, standard error, the log, PNG frames.
#include <cstdint>
#include <string>
#include <vector>

namespace vz::test {

struct RunResult {
    int status = -1;
    std::string standardError;
    std::string standardOutput;
};

// Runs VZ_PLAYER_PATH with `args` in directory `cwd` (environment extras as NAME=VALUE).
RunResult runPlayer(const std::vector<std::string>& args, const std::string& cwd,
                    const std::vector<std::string>& environment = {});

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;  // 0x00RRGGBB
    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

Picture readPng(const std::string& path);

// The log's lines with the dates of the opening and closing lines replaced by "DATE".
std::vector<std::string> maskedLogLines(const std::string& path);

// A 64-bit FNV-1a checksum of a picture's pixels.
std::uint64_t checksum(const Picture& picture);

}  // namespace vz::test
