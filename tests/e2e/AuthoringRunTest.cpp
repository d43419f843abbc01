// The authoring options run as a user runs them: --watch reloads a script that was
// fixed, --record makes a video ffprobe agrees with, --pack makes an archive that plays
// the same frames.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {
namespace {

namespace fs = std::filesystem;
const fs::path sample = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";

bool waitForText(const std::string& file, const std::string& text, double seconds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < deadline) {
        if (fs::exists(file) && readFile(file).find(text) != std::string::npos) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

std::string commandOutput(const std::string& command) {
    std::string out;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[256];
        while (fgets(buffer, sizeof buffer, pipe)) out += buffer;
        pclose(pipe);
    }
    return out;
}

const char* const smallConfig = "64\n48\n40\n4\n8\n2\nNOSOUND\n";

TEST(AuthoringRun, WatchShowsAFailingScriptAndPlaysItOnceFixed) {
    ScratchDir dir;
    writeFile("config.txt", smallConfig);
    writeFile("main.txt", "wait 0.5\nfillColour32bpp screen\n");
    // In the background, ended by `timeout` if the reload never comes; its exit status
    // lands in status.txt.
    const std::string command =
        "(timeout 20 " VZ_PLAYER_PATH " --headless --watch > out.txt 2>&1; echo $? > status.txt) &";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ASSERT_TRUE(waitForText("out.txt", "vzplayer: main.txt:2: unknow Component\n", 20)) << readFile("out.txt");
    writeFile("main.txt", "wait 0.5\nendDemo\n");
    ASSERT_TRUE(waitForText("status.txt", "\n", 25));
    EXPECT_EQ(readFile("status.txt"), "0\n") << readFile("out.txt");
    const auto log = readLines("logfile.txt");
    EXPECT_EQ(std::count(log.begin(), log.end(), "exeption : unknow Component"), 1);
}

TEST(AuthoringRun, RecordMakesAVideoOfEveryFrameWithTheMusic) {
    ScratchDir dir;
    for (const char* file : {"config.txt", "music.mod", "police.pcx"}) fs::copy_file(sample / file, file);
    writeFile("main.txt", "playModule music.mod 0 0\n0 -1 0 1 0\n");
    RunResult run = runPlayer({"--record", "show.mp4", "--until", "2"}, dir.path().string());
    ASSERT_EQ(run.status, 0) << run.standardError;
    // Not a terminal: one summary line. Frames at 0, then 0 again as the music starts
    // in frame 1, 0.02, ... 2.00 s.
    EXPECT_EQ(run.standardError.substr(0, 47), "vzplayer: 102 frames, show time 0.00 to 2.00 s,");
    EXPECT_EQ(commandOutput("ffprobe -v error -count_frames -select_streams v:0 -show_entries "
                            "stream=nb_read_frames,width,height -of csv=p=0 show.mp4"),
              "640,480,102\n");
    EXPECT_EQ(commandOutput("ffprobe -v error -select_streams a:0 -show_entries stream=codec_type,sample_rate "
                            "-of csv=p=0 show.mp4"),
              "audio,44100\n");
    const double seconds =
        std::stod(commandOutput("ffprobe -v error -show_entries format=duration -of csv=p=0 show.mp4"));
    EXPECT_NEAR(seconds, 2.04, 0.05);
    EXPECT_FALSE(fs::exists(".show.video.mp4"));
    EXPECT_FALSE(fs::exists(".show.audio.wav"));
}

TEST(AuthoringRun, RecordWithoutFfmpegSaysSo) {
    ScratchDir dir;
    writeFile("config.txt", smallConfig);
    writeFile("main.txt", "endDemo\n");
    RunResult run = runPlayer({"--record", "show.mp4"}, dir.path().string(), {"PATH=/nonexistent"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.standardError, "vzplayer: --record needs the program ffmpeg, which is not on PATH\n");
}

TEST(AuthoringRun, APackedSamplePlaysTheSameFrames) {
    ScratchDir dir;
    fs::create_directory("demo");
    for (const auto& entry : fs::directory_iterator(sample))
        if (entry.path().filename() != "logfile.txt") fs::copy_file(entry.path(), "demo" / entry.path().filename());
    writeFile("demo/notes.txt", "not named by any script\n");
    RunResult pack = runPlayer({"--pack", "demo", "demo.zip"}, dir.path().string());
    ASSERT_EQ(pack.status, 0) << pack.standardError;
    EXPECT_NE(pack.standardOutput.find("\nleft out: notes.txt\n"), std::string::npos) << pack.standardOutput;
    RunResult again = runPlayer({"--pack", "demo", "demo.zip"}, dir.path().string());
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(again.standardError,
              "vzplayer: --pack: " + (dir.path() / "demo.zip").string() + " exists (--force overwrites it)\n");

    const std::vector<std::string> shots{"--headless", "--until", "20", "--shot", "8=a.png", "--shot", "19=b.png"};
    auto args = shots;
    args.push_back("demo");
    ASSERT_EQ(runPlayer(args, dir.path().string()).status, 0);
    const auto a = checksum(readPng("a.png")), b = checksum(readPng("b.png"));
    args.back() = "demo.zip";
    ASSERT_EQ(runPlayer(args, dir.path().string()).status, 0);
    EXPECT_EQ(checksum(readPng("a.png")), a);
    EXPECT_EQ(checksum(readPng("b.png")), b);
}

}  // namespace
}  // namespace vz::test
