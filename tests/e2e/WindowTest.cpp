// A real window under a virtual X server: the player opens, shows the band layout, and
// Escape sent to the window ends it with the closing log lines.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Waits for the process to end, up to `limit`; kills it after that. Returns the status.
int waitFor(pid_t pid, std::chrono::milliseconds limit) {
    auto deadline = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (std::chrono::steady_clock::now() < deadline) {
        if (waitpid(pid, &status, WNOHANG) == pid) return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        std::this_thread::sleep_for(20ms);
    }
    kill(pid, SIGKILL);
    waitpid(pid, &status, 0);
    return -2;
}

std::string run(const std::string& command) {
    std::string out;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return out;
    char buf[256];
    while (fgets(buf, sizeof buf, pipe)) out += buf;
    pclose(pipe);
    return out;
}

bool onPath(const std::string& tool) { return run("command -v " + tool + " 2>/dev/null").size() > 0; }

// A 32-bit word of `data` at `at`, most significant byte first unless `lsbFirst`.
std::uint32_t word(const std::string& data, std::size_t at, bool lsbFirst = false) {
    std::uint32_t v = 0;
    for (int i = 0; i < 4; ++i) v = v << 8 | static_cast<std::uint8_t>(data[at + (lsbFirst ? 3 - i : i)]);
    return v;
}

// Reads a 32-bit ZPixmap window dump as written by xwd.
Picture readXwd(const std::string& path) {
    std::string data = readFile(path);
    Picture p;
    if (data.size() < 100 || word(data, 44) != 32) return p;
    const std::uint32_t bytesPerLine = word(data, 48);
    const std::size_t start = word(data, 0) + word(data, 76) * 12;  // header, then the colour map
    p.width = static_cast<int>(word(data, 16));
    p.height = static_cast<int>(word(data, 20));
    if (data.size() < start + std::size_t(bytesPerLine) * p.height) return Picture{};
    for (int y = 0; y < p.height; ++y)
        for (int x = 0; x < p.width; ++x)
            p.pixels.push_back(
                word(data, start + std::size_t(y) * bytesPerLine + std::size_t(x) * 4, word(data, 28) == 0) & 0xFFFFFF);
    return p;
}

class XServer {
public:
    XServer() {
        for (int n = 90; n < 110 && pid_ < 0; ++n) {
            if (fs::exists("/tmp/.X11-unix/X" + std::to_string(n)) ||
                fs::exists("/tmp/.X" + std::to_string(n) + "-lock"))
                continue;
            display_.assign(1, ':');
            display_ += std::to_string(n);
            pid_ = startProcess({"Xvfb", display_, "-screen", "0", "800x600x24", "-nolisten", "tcp"}, ".", {},
                                "/dev/null");
            for (int i = 0; i < 100 && !fs::exists("/tmp/.X11-unix/X" + std::to_string(n)); ++i)
                std::this_thread::sleep_for(50ms);
        }
    }
    ~XServer() {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            waitFor(pid_, 3000ms);
        }
    }
    bool running() const { return pid_ > 0; }
    const std::string& display() const { return display_; }

private:
    pid_t pid_ = -1;
    std::string display_;
};

TEST(Window, ShowsTheBandAndEndsOnEscape) {
    if (!onPath("Xvfb") || !onPath("xdotool") || !onPath("xwd")) GTEST_SKIP() << "Xvfb, xdotool or xwd missing";
    ScratchDir dir;
    XServer x;
    ASSERT_TRUE(x.running());
    // A 320 x 240 display whose band is the 200 rows from row 20, filled with one colour.
    writeFile("config.txt", "320\r\n240\r\n200\r\n20\r\n8\r\n2\r\nNOSOUND\r\n");
    writeFile("main.txt",
              "add orange Color 0 0 128 255\r\nfillColor32bpp screen orange constInt 32\r\n0 1000 0 1 0\r\n");
    // The X and D-Bus client libraries behind the window keep a few allocations to the
    // end of the process; leak checking of the player is left to the headless tests.
    const std::vector<std::string> environment{"DISPLAY=" + x.display(), "SDL_AUDIODRIVER=dummy",
                                               "ASAN_OPTIONS=detect_leaks=0"};
    pid_t player = startProcess({VZ_PLAYER_PATH, "."}, dir.path().string(), environment, "player.out");
    ASSERT_GT(player, 0);
    std::string env = "DISPLAY=" + x.display() + " ";
    std::string window =
        run(env + "timeout 20 xdotool search --sync --name 'Vorn and Zelvaine - demo player' 2>/dev/null | head -n 1");
    ASSERT_FALSE(window.empty()) << readFile("player.out");
    while (!window.empty() && (window.back() == '\n' || window.back() == ' ')) window.pop_back();
    std::this_thread::sleep_for(500ms);  // let a few frames be presented

    run(env + "xwd -silent -id " + window + " -out shot.xwd");
    Picture shot = readXwd("shot.xwd");
    ASSERT_EQ(shot.width, 320);
    ASSERT_EQ(shot.height, 240);
    EXPECT_EQ(shot.at(0, 0), 0u);
    EXPECT_EQ(shot.at(319, 19), 0u);
    EXPECT_EQ(shot.at(0, 20), 0xFF8000u);
    EXPECT_EQ(shot.at(319, 219), 0xFF8000u);
    EXPECT_EQ(shot.at(160, 220), 0u);
    EXPECT_EQ(shot.at(319, 239), 0u);

    run(env + "xdotool key --window " + window + " Escape 2>/dev/null");
    EXPECT_EQ(waitFor(player, 10000ms), 0) << readFile("player.out");
    auto lines = maskedLogLines("logfile.txt");
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[lines.size() - 3], "");
    EXPECT_EQ(lines[lines.size() - 2], "Closing log at DATE");
    EXPECT_EQ(lines.back(), std::string(60, '-'));
}

}  // namespace
}  // namespace vz::test
