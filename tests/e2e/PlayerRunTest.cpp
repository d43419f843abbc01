// The player binary run as a user runs it: logs, exit statuses, archives, listings.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"
#include "support/ZipWriter.hpp"

namespace vz::test {
namespace {

namespace fs = std::filesystem;

const std::string dashes(60, '-');
const std::string config = "64\r\n48\r\n40\r\n4\r\n8\r\n2\r\nNOSOUND\r\n";

// The lines of a log from its start up to the component listing, and after it.
struct LogParts {
    std::vector<std::string> head, tail;
};

LogParts splitLog(const std::vector<std::string>& lines) {
    LogParts parts;
    auto count = std::find(lines.begin(), lines.end(), "debug: Sequencer Factory: 146 Components already registered");
    EXPECT_NE(count, lines.end());
    parts.head.assign(lines.begin(), count);
    auto last = std::find(lines.begin(), lines.end(), "Component symbol: lensflareSpline32bpp");
    EXPECT_NE(last, lines.end());
    if (last != lines.end()) parts.tail.assign(last + 3, lines.end());
    return parts;
}

TEST(PlayerRun, LogOfAShortShow) {
    ScratchDir dir;
    writeFile("config.txt", config);
    writeFile("main.txt", "wait 0.5\r\nendDemo\r\n");
    RunResult run = runPlayer({"--headless", "."}, dir.path().string());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.standardError, "");
    LogParts log = splitLog(maskedLogLines("logfile.txt"));
    EXPECT_EQ(log.head, (std::vector<std::string>{"Opening log on DATE", dashes, "Hardware resolution : 64 * 48",
                                                  "Window height : 40", "Repository::add screen", "", ""}));
    EXPECT_EQ(log.tail, (std::vector<std::string>{"", "", "", "Interpretation of main.txt : ", "", "",
                                                  "Closing log at DATE", dashes}));
}

TEST(PlayerRun, AMissingScriptIsLoggedAsAnExceptionAndFailsHeadless) {
    ScratchDir dir;
    writeFile("config.txt", config);
    RunResult run = runPlayer({"--headless"}, dir.path().string());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.standardError, "vzplayer: TextParser can not open file (main.txt: No such file or directory)\n");
    auto lines = maskedLogLines("logfile.txt");
    EXPECT_EQ(lines, (std::vector<std::string>{"Opening log on DATE", dashes, "Hardware resolution : 64 * 48",
                                               "Window height : 40", dashes, "Fatal: Parser : open failure of main.txt",
                                               dashes, "", dashes, "exeption : TextParser can not open file", "",
                                               "Closing log at DATE", dashes}));
}

TEST(PlayerRun, ScriptErrorsNameTheFileAndLine) {
    ScratchDir dir;
    writeFile("config.txt", config);
    writeFile("main.txt", "# the show\r\nwait 0.1\r\nnoSuchEffect screen\r\n");
    RunResult run = runPlayer({"--headless"}, dir.path().string());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.standardError, "vzplayer: main.txt:3: unknow Component\n");
    auto lines = maskedLogLines("logfile.txt");
    ASSERT_GE(lines.size(), 9u);
    EXPECT_EQ(std::vector<std::string>(lines.end() - 9, lines.end()),
              (std::vector<std::string>{dashes, "unknow Component : main.txt::noSuchEffect", dashes, "", dashes,
                                        "exeption : unknow Component", "", "Closing log at DATE", dashes}));
}

TEST(PlayerRun, BadUsageAndInformation) {
    ScratchDir dir;
    RunResult bad = runPlayer({"--fps", "x"}, dir.path().string());
    EXPECT_EQ(bad.status, 2);
    EXPECT_EQ(bad.standardError.substr(0, 44), "vzplayer: --fps needs a number, not 'x'\nUsag");
    EXPECT_EQ(runPlayer({"--version"}, dir.path().string()).status, 0);
    EXPECT_EQ(runPlayer({"no-such-demo"}, dir.path().string()).status, 2);
    // A configuration the player cannot show stops it before the show.
    writeFile("config.txt", "64\n48\n40\n20\n8\n2\n");
    RunResult unfit = runPlayer({"--headless"}, dir.path().string());
    EXPECT_EQ(unfit.status, 1);
    EXPECT_EQ(unfit.standardError,
              "vzplayer: config.txt:4: the window band (height 40 at row 20) does not fit in the hardware height 48\n");
}

TEST(PlayerRun, ComponentListingOnStandardOutput) {
    ScratchDir dir;
    RunResult run = runPlayer({"--list-components"}, dir.path().string());
    EXPECT_EQ(run.status, 0);
    // The same listing as the log's: count, heading, then four lines per keyword.
    EXPECT_EQ(run.standardOutput.substr(0, 145),
              "\ndebug: Sequencer Factory: 146 Components already registered\n"
              "debug: Sequencer Factory: Components list :\n\nComponent symbol: composite\n\tDescriptio");
}

TEST(PlayerRun, TheComponentReferenceIsUpToDate) {
    ScratchDir dir;
    RunResult run = runPlayer({"--list-components", "--markdown"}, dir.path().string());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.standardOutput, readFile(fs::path(VZ_SOURCE_DIR) / "docs" / "components.md"))
        << "docs/components.md is stale: run `make docs`";
}

TEST(PlayerRun, AZippedDemoPlaysFromTheArchive) {
    ScratchDir dir;
    writeZip("show.zip", {{"CONFIG.TXT", config}, {"main.txt", "wait 0.2\r\nendDemo\r\n"}});
    RunResult run = runPlayer({"--headless", "--shot", "0.1=shot.png", "show.zip"}, dir.path().string());
    EXPECT_EQ(run.status, 0) << run.standardError;
    Picture shot = readPng("shot.png");
    EXPECT_EQ(shot.width, 64);
    EXPECT_EQ(shot.height, 48);
    auto lines = maskedLogLines("logfile.txt");  // the log stays beside the archive
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[2], "Hardware resolution : 64 * 48");
}

TEST(PlayerRun, OnlyTheBandIsDrawnOn) {
    ScratchDir dir;
    writeFile("config.txt", config);  // 64 x 48, band of 40 rows from row 4
    writeFile("main.txt", "add blue Color 0 255 0 0\r\nfillColor32bpp screen blue constInt 32\r\n0 10 0 1 0\r\n");
    RunResult run = runPlayer({"--headless", "--until", "0.5", "--shot", "0.2=band.png"}, dir.path().string());
    ASSERT_EQ(run.status, 0) << run.standardError;
    Picture shot = readPng("band.png");
    ASSERT_EQ(shot.width, 64);
    ASSERT_EQ(shot.height, 48);
    for (int y = 0; y < 48; ++y) {
        const std::uint32_t want = y >= 4 && y < 44 ? 0x0000FFu : 0u;
        EXPECT_EQ(shot.at(0, y), want) << y;
        EXPECT_EQ(shot.at(63, y), want) << y;
    }
}

TEST(PlayerRun, UntilEndsAfterTheFirstFrameAtThatTime) {
    ScratchDir dir;
    writeFile("config.txt", config);
    writeFile("main.txt", "");
    fs::create_directory("frames");
    RunResult run =
        runPlayer({"--headless", "--fps", "10", "--until", "0.3", "--dump-frames", "frames"}, dir.path().string());
    EXPECT_EQ(run.status, 0);
    // Frames at 0, 0.1, 0.2 and 0.3 s.
    EXPECT_TRUE(fs::exists("frames/frame-000003.png"));
    EXPECT_FALSE(fs::exists("frames/frame-000004.png"));
}

}  // namespace
}  // namespace vz::test
