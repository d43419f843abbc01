#include "shell/CommandLine.hpp"

#include <gtest/gtest.h>

namespace vz {
namespace {

Options parse(std::vector<const char*> args) {
    args.insert(args.begin(), "vzplayer");
    return parseCommandLine(static_cast<int>(args.size()), args.data());
}

TEST(CommandLine, ReadsEveryOption) {
    Options o = parse({"--headless", "--fps", "25", "--until", "12.5", "--shot", "1.5=a.png", "--shot", "3=b.png",
                       "--dump-frames", "frames", "--audio-out", "music.wav", "demos/x"});
    EXPECT_TRUE(o.headless && parse({"--list-components"}).listComponents);
    EXPECT_EQ(std::vector<double>({o.fps, o.until.value_or(-1), parse({}).fps}),
              std::vector<double>({25.0, 12.5, 50.0}));
    ASSERT_EQ(o.shots.size(), 2u);
    EXPECT_EQ(std::vector<double>({o.shots[0].time, o.shots[1].time}), std::vector<double>({1.5, 3.0}));
    EXPECT_EQ(o.shots[0].file + o.shots[1].file, "a.pngb.png");
    EXPECT_EQ(o.dumpFramesDir + " " + o.audioOut + " " + o.demo, "frames music.wav demos/x");
    // A recording is always headless; --pack takes two values.
    Options a = parse({"--record", "show.mp4", "--start", "7.5", "--pack", "in", "out.zip", "--force", "--check"});
    EXPECT_TRUE(a.headless && a.force && a.check && !a.watch && parse({"--watch"}).watch);
    EXPECT_EQ(a.start.value_or(-1), 7.5);
    EXPECT_EQ(a.record + " " + a.packDir + " " + a.packOut, "show.mp4 in out.zip");
}

TEST(CommandLine, BadUsageSaysWhatIsWrong) {
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"--fps"}, "--fps needs a value"},
        {{"--fps", "fast"}, "--fps needs a number, not 'fast'"},
        {{"--fps", "0.5"}, "--fps must be between 1 and 1000"},
        {{"--fps", "1e-300"}, "--fps must be between 1 and 1000"},
        {{"--memory-limit", "0"}, "--memory-limit must be between 1 and 1048576 MiB"},
        {{"--headless", ""}, "the DEMO argument is empty"},
        {{"--shot", "picture.png"}, "--shot takes T=FILE.png, not 'picture.png'"},
        {{"--colour"}, "unknown option --colour"},
        {{"a", "b"}, "only one demo can be played, got 'a' and 'b'"},
        {{"--audio-out", "x.wav"}, "--audio-out needs --headless (the music is rendered in step with the frames)"},
        {{"--start", "-1"}, "--start needs a time of 0 or more"},
        {{"--pack", "demo"}, "--pack needs a value"},
    };
    for (const auto& [args, message] : cases) {
        try {
            parse(args);
            ADD_FAILURE() << "accepted: " << message;
        } catch (const UsageError& e) {
            EXPECT_STREQ(e.what(), message);
        }
    }
}

}  // namespace
}  // namespace vz
