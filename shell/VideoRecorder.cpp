#include "shell/VideoRecorder.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <vector>

#include "core/error.hpp"

extern char** environ;

namespace vz {

namespace fs = std::filesystem;

namespace {

// Starts `args` with its standard input from `inputFd` (or /dev/null when -1); -1 when
// it cannot be started.
int spawn(const std::vector<std::string>& args, int inputFd, int closeFd) {
    std::vector<char*> argv;
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (inputFd >= 0)
        posix_spawn_file_actions_adddup2(&actions, inputFd, 0);
    else
        posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    if (closeFd >= 0) posix_spawn_file_actions_addclose(&actions, closeFd);
    pid_t pid = -1;
    if (posix_spawn(&pid, args[0].c_str(), &actions, nullptr, argv.data(), environ) != 0) pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

bool exitedWell(int pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

}  // namespace

std::string VideoRecorder::findProgram(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::istringstream dirs(path ? path : "");
    for (std::string dir; std::getline(dirs, dir, ':');) {
        const fs::path candidate = fs::path(dir.empty() ? "." : dir) / program;
        if (access(candidate.c_str(), X_OK) == 0 && fs::is_regular_file(candidate)) return candidate.string();
    }
    return {};
}

VideoRecorder::VideoRecorder(const std::string& output, int width, int height, double fps)
    : output_(output), frameBytes_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
    const std::string ffmpeg = findProgram("ffmpeg");
    if (ffmpeg.empty()) throw error("--record needs the program ffmpeg, which is not on PATH");
    const fs::path out(output);
    // Hidden files beside the output: ".NAME.video.EXT" and ".NAME.audio.wav".
    std::string hidden = out.stem().string();
    hidden.insert(hidden.begin(), '.');
    video_ = (out.parent_path() / (hidden + ".video" + out.extension().string())).string();
    audio_ = (out.parent_path() / (hidden + ".audio.wav")).string();
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0) throw error("--record cannot make a pipe to ffmpeg");
    // The surface's words are bytes blue, green, red, unused: ffmpeg's "bgr0".
    std::vector<std::string> args{ffmpeg,
                                  "-hide_banner",
                                  "-loglevel",
                                  "error",
                                  "-y",
                                  "-f",
                                  "rawvideo",
                                  "-pix_fmt",
                                  "bgr0",
                                  "-s",
                                  std::to_string(width) + "x" + std::to_string(height),
                                  "-r",
                                  number(fps),
                                  "-i",
                                  "pipe:0",
                                  "-an"};
    const std::string ext = out.extension().string();
    if (ext == ".mp4" || ext == ".mov" || ext == ".mkv") {
        // Pictures every player can show.
        args.push_back("-pix_fmt");
        args.push_back("yuv420p");
    }
    args.push_back(video_);
    pid_ = spawn(args, fds[0], fds[1]);
    close(fds[0]);
    if (pid_ < 0) {
        close(fds[1]);
        throw error("--record cannot start " + ffmpeg);
    }
    pipe_ = fds[1];
    // A stopped encoder shows as a failed write, not as a signal that ends the player.
    signal(SIGPIPE, SIG_IGN);
}

VideoRecorder::~VideoRecorder() {
    stopEncoder();
    if (pid_ >= 0) exitedWell(pid_);
    std::error_code ec;
    fs::remove(video_, ec);
}

void VideoRecorder::frame(const std::uint32_t* pixels) {
    const auto* bytes = reinterpret_cast<const char*>(pixels);
    for (std::size_t done = 0; done < frameBytes_;) {
        const ssize_t wrote = write(pipe_, bytes + done, frameBytes_ - done);
        if (wrote < 0 && errno == EINTR) continue;
        if (wrote <= 0) throw error("--record: ffmpeg stopped taking frames (see its message above)");
        done += static_cast<std::size_t>(wrote);
    }
}

void VideoRecorder::stopEncoder() {
    if (pipe_ >= 0) close(pipe_);
    pipe_ = -1;
}

bool VideoRecorder::finish(const std::string& audio) {
    stopEncoder();
    const bool encoded = pid_ >= 0 && exitedWell(pid_);
    pid_ = -1;
    bool done = false;
    if (!encoded) {
        std::fprintf(stderr, "vzplayer: --record: ffmpeg could not encode %s\n", output_.c_str());
    } else if (!audio.empty()) {
        const int mux = spawn({findProgram("ffmpeg"), "-hide_banner", "-loglevel", "error", "-y", "-i", video_, "-i",
                               audio, "-map", "0:v", "-map", "1:a", "-c:v", "copy", output_},
                              -1, -1);
        done = mux >= 0 && exitedWell(mux);
        if (!done) std::fprintf(stderr, "vzplayer: --record: ffmpeg could not add the music to %s\n", output_.c_str());
    }
    std::error_code ec;
    fs::remove(video_, ec);
    fs::remove(audio_, ec);
    return done;
}

}  // namespace vz
