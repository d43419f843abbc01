#include "shell/Config.hpp"

#include <gtest/gtest.h>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// The fatal error reading `content` as config.txt raises ("no error" if none); a null
// content reads a missing file.
std::string fatalOf(const char* content) {
    if (content) test::writeFile("config.txt", content);
    return test::errorLineOf([] { Config::read("config.txt"); });
}

TEST(Config, ReadsNumbersSwitchesAndLogsTheResolution) {
    test::ScratchDir dir;
    test::writeFile("config.txt",
                    "640\r\n480 ignored words\r\n# the band\r\n400\r\n   # comment\r\n40\r\n32\r\n2\r\n"
                    "COUNTERS\r\nnosound\r\nARCHIVE first.dat\r\nLOWQUALITY extra\r\nARCHIVE demo.dat\r\n");
    test::startLog();
    Config c = Config::read("config.txt");
    auto lines = test::stopLogAndReadLines();
    EXPECT_EQ(std::vector<int>({c.hardwareWidth, c.hardwareHeight, c.windowHeight, c.topOffset, c.smallSlotCount,
                                c.screenSlotCount}),
              std::vector<int>({640, 480, 400, 40, 32, 2}));
    EXPECT_TRUE(c.counters && c.lowQuality && c.archive);
    EXPECT_FALSE(c.nosound);               // keywords are case-sensitive
    EXPECT_EQ(c.archiveName, "demo.dat");  // the last name wins
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[2], "Hardware resolution : 640 * 480");
    EXPECT_EQ(lines[3], "Window height : 400");
}

TEST(Config, MissingFileMissingValuesAndUnshowableSizesAreFatal) {
    test::ScratchDir dir;
    test::startLog();
    EXPECT_EQ(fatalOf(nullptr), "vzplayer: TextParser can not open file (config.txt: No such file or directory)");
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[3], "Fatal: Parser : open failure of config.txt");
    const std::pair<const char*, const char*> cases[] = {
        {"640\n480\n400\n40\n32\n", "vzplayer: config.txt:6: Fatal: Parser : there is no tokens lefts in the line"},
        {"640\n480\n400\n40\n32\n2\nARCHIVE\n",
         "vzplayer: config.txt:7: Fatal: Parser : there is no tokens lefts in the line"},
        {"0\n480\n400\n40\n32\n2\n", "vzplayer: config.txt:1: invalid hardware resolution 0 * 480"},
        {"640\n480\n400\n100\n32\n2\n",
         "vzplayer: config.txt:4: the window band (height 400 at row 100) does not fit in the hardware height 480"},
        // The band's end is summed in 64 bits: 2147483600 + 400 does not wrap below 480.
        {"640\n480\n400\n2147483600\n32\n2\n",
         "vzplayer: config.txt:4: the window band (height 400 at row 2147483600) does not fit in the hardware height "
         "480"},
        {"640\n480\n400\n40\n-1\n2\n", "vzplayer: config.txt:5: slot counts out of range (-1, 2)"},
        {"8192\n# pools\n8192\n8192\n0\n32\n100\n",
         "vzplayer: config.txt:7: the memory of the slot pools needs 6402.1 MiB, beyond the memory budget of 4096 MiB "
         "(0 MiB in "
         "use; see --memory-limit)"},
        {"640\n480\n480\n0\n32\n2\n", "no error"},  // the band is the whole display
    };
    for (const auto& [content, message] : cases) EXPECT_EQ(fatalOf(content), message) << content;
}

}  // namespace
}  // namespace vz
