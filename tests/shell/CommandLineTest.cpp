#include "shell/CommandLine.hpp"

#include <gtest/gtest.h>

namespace vz {
namespace {

Options parse(std::vector<const char*> args) {
    args.insert(args.begin(), "vzplayer");
    return parseCommandLine(static_cast<int>(args.size()), args.data());
}

std::string usageErrorOf(std::vector<const char*> args) {
    try {
        parse(std::move(args));
    } catch (const UsageError& e) {
        return e.what();
    }
    return "accepted";
}

TEST(CommandLine, ReadsEveryOption) {
    Options o = parse({"--headless", "--fps", "25", "--until", "12.5", "--shot", "1.5=a.png", "--shot", "3=b.png",
                       "--dump-frames", "frames", "--audio-out", "music.wav", "demos/x"});
    EXPECT_TRUE(o.headless);
    EXPECT_EQ(o.fps, 25.0);
    ASSERT_TRUE(o.until.has_value());
    EXPECT_EQ(*o.until, 12.5);
    ASSERT_EQ(o.shots.size(), 2u);
    EXPECT_EQ(o.shots[0].time, 1.5);
    EXPECT_EQ(o.shots[0].file, "a.png");
    EXPECT_EQ(o.shots[1].file, "b.png");
    EXPECT_EQ(o.dumpFramesDir, "frames");
    EXPECT_EQ(o.audioOut, "music.wav");
    EXPECT_EQ(o.demo, "demos/x");
    EXPECT_EQ(parse({}).fps, 50.0);
    EXPECT_TRUE(parse({"--list-components"}).listComponents);
}

TEST(CommandLine, BadUsageSaysWhatIsWrong) {
    EXPECT_EQ(usageErrorOf({"--fps"}), "--fps needs a value");
    EXPECT_EQ(usageErrorOf({"--fps", "fast"}), "--fps needs a number, not 'fast'");
    EXPECT_EQ(usageErrorOf({"--fps", "0"}), "--fps must be between 0 and 10000");
    EXPECT_EQ(usageErrorOf({"--shot", "picture.png"}), "--shot takes T=FILE.png, not 'picture.png'");
    EXPECT_EQ(usageErrorOf({"--colour"}), "unknown option --colour");
    EXPECT_EQ(usageErrorOf({"a", "b"}), "only one demo can be played, got 'a' and 'b'");
    EXPECT_EQ(usageErrorOf({"--audio-out", "x.wav"}),
              "--audio-out needs --headless (the music is rendered in step with the frames)");
}

}  // namespace
}  // namespace vz
