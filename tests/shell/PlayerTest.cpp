// The frame loop run in-process on the headless console: keys, time, end conditions.
#include "shell/Player.hpp"

#include <gtest/gtest.h>

#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "core/logstream.hpp"
#include "effects/sprites/TextDrawing.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "shell/display/headless/HeadlessConsole.hpp"
#include "support/TestSupport.hpp"

#include <filesystem>

namespace vz {
namespace {

using test::ScratchDir;
using test::writeFile;

class PlayerTest : public ::testing::Test {
protected:
    PlayerTest() { writeFile("config.txt", "64\n48\n40\n4\n8\n2\nNOSOUND\n"); }

    int play(const std::string& script, double until) {
        writeFile("main.txt", script);
        options.headless = true;
        options.fps = 100;
        options.until = until;
        return playDemo(options, console);
    }

    std::vector<std::string> linesWith(const std::string& prefix) {
        std::vector<std::string> found;
        for (const auto& line : test::readLines("logfile.txt"))
            if (line.rfind(prefix, 0) == 0) found.push_back(line);
        return found;
    }

    ScratchDir dir;
    Options options;
    HeadlessConsole console;
};

TEST_F(PlayerTest, SpaceLogsTheTimeCutToTenthsOncePerPress) {
    console.queueKey(1237, spaceKey);                     // t = 12.37
    console.queueKey(1500, Key{'a'});                     // another key ...
    console.queueKey(1501, spaceKey);                     // ... latches the Space right after it
    console.queueKey(1600, Key{32, false, true, false});  // Shift+Space is not Space
    console.queueKey(1700, spaceKey);
    EXPECT_EQ(play("", 20.0), 0);
    EXPECT_EQ(linesWith("actualTime = "), (std::vector<std::string>{"actualTime = 12.3", "actualTime = 17"}));
    EXPECT_FALSE(console.opened());  // closed again at shut-down
    EXPECT_EQ(console.title(), "Vorn and Zelvaine - demo player");
}

TEST_F(PlayerTest, EscapeEndsTheShowBeforeTheFrameIsDrawn) {
    console.queueKey(30, Key{27, false, true, false});  // Shift+Escape does not end it
    console.queueKey(50, escapeKey);
    EXPECT_EQ(play("", 100.0), 0);
    EXPECT_EQ(console.updates(), 50);  // frames 0-49 were presented, frame 50 was not
    EXPECT_EQ(linesWith("Closing log at ").size(), 1u);
}

class CountersTest : public PlayerTest {
protected:
    CountersTest() { writeFile("config.txt", "640\n480\n400\n40\n8\n16\nCOUNTERS\nNOSOUND\n"); }
};

TEST_F(CountersTest, TheCounterLineShowsSecondsAndFramesOfTheLastSecond) {
    std::filesystem::copy_file(std::filesystem::path(VZ_SOURCE_DIR) / "demos/sample/police.pcx", "police.pcx");
    // At 100 frames per second the first update comes at t = 1.01, after 102 frames.
    // The script clears the band every frame, so the last frame holds only its own line.
    EXPECT_EQ(play("add black Color 0 0 0 0\nfillColor32bpp screen black constInt 32\n0 100 0 1 0\n", 1.5), 0);
    auto font = ImageLoader::LoadLayer32bpp("police.pcx");
    Layer32bpp expected(640, 400);
    std::fill_n(expected.pixels, expected.pixelCount(), 0u);
    TextStyle style;
    style.x = -0.8f;
    style.y = -0.8f;
    style.spacing = 8.0f;
    drawText(expected, *font, style, "1  102 FPS");
    const auto& frame = console.lastFrame();
    int differing = 0, lit = 0;
    for (int i = 0; i < 640 * 400; ++i) {
        differing += frame[40 * 640 + i] != expected.pixels[i];
        lit += expected.pixels[i] != 0;
    }
    EXPECT_EQ(differing, 0);
    EXPECT_GT(lit, 1000);
}

TEST_F(CountersTest, WithoutTheFontTheShowStopsWithThePictureError) {
    EXPECT_EQ(play("", 1.0), 1);
    auto lines = test::readLines("logfile.txt");
    ASSERT_GE(lines.size(), 8u);
    EXPECT_EQ(std::vector<std::string>(lines.end() - 8, lines.end() - 3),
              (std::vector<std::string>{"loadPcx error, the file was : police.pcx", dashLine, "", dashLine,
                                        "exeption : loadPcx error"}));
}

}  // namespace
}  // namespace vz
