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

// The log's lines without the component listing (from its count to the last keyword).
std::vector<std::string> logWithoutListing() {
    std::vector<std::string> lines = maskedLogLines("logfile.txt");
    auto first = std::find(lines.begin(), lines.end(), "debug: Sequencer Factory: 146 Components already registered");
    auto last = std::find(lines.begin(), lines.end(), "Component symbol: lensflareSpline32bpp");
    if (first != lines.end() && last != lines.end()) lines.erase(first, last + 3);
    return lines;
}

struct Played {
    int status;
    std::string standardError;
    std::vector<std::string> log;  // without the listing
};

// Plays `script` (none: no main.txt) headless with the small configuration.
Played playScript(const char* script) {
    ScratchDir dir;
    writeFile("config.txt", config);
    if (script) writeFile("main.txt", script);
    RunResult run = runPlayer({"--headless", "."}, dir.path().string());
    return {run.status, run.standardError, logWithoutListing()};
}

using Lines = std::vector<std::string>;
const Lines opened = {"Opening log on DATE", dashes, "Hardware resolution : 64 * 48", "Window height : 40"};
const Lines closed = {"", "Closing log at DATE", dashes};
const Lines started = {"Repository::add screen", "", "", "", "", "", "Interpretation of main.txt : ", "", ""};

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(PlayerRun, LogOfAShortShow) {
    const Played played = playScript("wait 0.5\r\nendDemo\r\n");
    EXPECT_EQ(played.status, 0);
    EXPECT_EQ(played.standardError, "");
    EXPECT_EQ(played.log, opened + started + Lines({"Closing log at DATE", dashes}));
}

TEST(PlayerRun, AMissingScriptIsLoggedAsAnExceptionAndFailsHeadless) {
    const Played played = playScript(nullptr);
    EXPECT_EQ(played.status, 1);
    EXPECT_EQ(played.standardError, "vzplayer: TextParser can not open file (main.txt: No such file or directory)\n");
    EXPECT_EQ(played.log, opened + framed("Fatal: Parser : open failure of main.txt") +
                              Lines({"", dashes, "exeption : TextParser can not open file"}) + closed);
}

TEST(PlayerRun, ScriptErrorsNameTheFileAndLine) {
    const Played played = playScript("# the show\r\nwait 0.1\r\nnoSuchEffect screen\r\n");
    EXPECT_EQ(played.status, 1);
    EXPECT_EQ(played.standardError, "vzplayer: main.txt:3: unknow Component\n");
    EXPECT_EQ(played.log, opened + started + Lines({"main.txt:"}) +
                              framed("unknow Component : main.txt::noSuchEffect") +
                              Lines({"", dashes, "exeption : unknow Component"}) + closed);
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
    const std::string pictures = (fs::path(VZ_SOURCE_DIR) / "docs" / "pictures" / "components").string();
    RunResult run = runPlayer({"--list-components", "--markdown", "--pictures", pictures}, dir.path().string());
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
