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
}

TEST(CommandLine, BadUsageSaysWhatIsWrong) {
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"--fps"}, "--fps needs a value"},
        {{"--fps", "fast"}, "--fps needs a number, not 'fast'"},
        {{"--fps", "0"}, "--fps must be between 0 and 10000"},
        {{"--shot", "picture.png"}, "--shot takes T=FILE.png, not 'picture.png'"},
        {{"--colour"}, "unknown option --colour"},
        {{"a", "b"}, "only one demo can be played, got 'a' and 'b'"},
        {{"--audio-out", "x.wav"}, "--audio-out needs --headless (the music is rendered in step with the frames)"},
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
