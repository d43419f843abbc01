// A real window under a virtual X server: the player opens, shows the band layout, and
// Escape sent to the window ends it with the closing log lines.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {
namespace {

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

TEST(Window, ShowsTheBandAndEndsOnEscape) {
    if (std::system("(command -v xvfb-run && command -v xdotool && command -v xwd) > /dev/null") != 0)
        GTEST_SKIP() << "xvfb-run, xdotool or xwd missing";
    ScratchDir dir;
    // A 320 x 240 display whose band is the 200 rows from row 20, filled with one colour.
    writeFile("config.txt", "320\r\n240\r\n200\r\n20\r\n8\r\n2\r\nNOSOUND\r\n");
    writeFile("main.txt",
              "add orange Color 0 0 128 255\r\nfillColor32bpp screen orange constInt 32\r\n0 1000 0 1 0\r\n");
    // In one X session: the player starts, its window is found and, after a few frames,
    // dumped and sent Escape; the player gets 10 s to end. The X and D-Bus client
    // libraries behind the window keep a few allocations to the end of the process; leak
    // checking of the player is left to the headless tests.
    writeFile("session.sh",
              "SDL_AUDIODRIVER=dummy ASAN_OPTIONS=detect_leaks=0 \"$1\" . > player.out 2>&1 &\n"
              "player=$!\n"
              "window=$(timeout 20 xdotool search --sync --name 'Vorn and Zelvaine - demo player' | head -n 1)\n"
              "sleep 0.5\n"
              "xwd -silent -id \"$window\" -out shot.xwd\n"
              "xdotool key --window \"$window\" Escape\n"
              "timeout 10 tail --pid=$player -f /dev/null || kill -9 $player\n"
              "wait $player\n"
              "echo $? > status\n");
    std::string session = "xvfb-run -a -s '-screen 0 800x600x24 -nolisten tcp' sh session.sh '";
    session += std::string(VZ_PLAYER_PATH) + "' > session.out 2>&1";
    EXPECT_EQ(std::system(session.c_str()), 0) << readFile("session.out");

    Picture shot = readXwd("shot.xwd");
    ASSERT_EQ(shot.width, 320) << readFile("session.out") << readFile("player.out");
    ASSERT_EQ(shot.height, 240);
    EXPECT_EQ(shot.at(0, 0), 0u);
    EXPECT_EQ(shot.at(319, 19), 0u);
    EXPECT_EQ(shot.at(0, 20), 0xFF8000u);
    EXPECT_EQ(shot.at(319, 219), 0xFF8000u);
    EXPECT_EQ(shot.at(160, 220), 0u);
    EXPECT_EQ(shot.at(319, 239), 0u);

    EXPECT_EQ(readFile("status"), "0\n") << readFile("player.out");
    auto lines = maskedLogLines("logfile.txt");
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[lines.size() - 3], "");
    EXPECT_EQ(lines[lines.size() - 2], "Closing log at DATE");
    EXPECT_EQ(lines.back(), std::string(60, '-'));
}

}  // namespace
}  // namespace vz::test
