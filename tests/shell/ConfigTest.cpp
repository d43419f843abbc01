#include "shell/Config.hpp"

#include <gtest/gtest.h>

#include "shell/error.hpp"
#include "shell/logstream.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using test::ScratchDir;
using test::writeFile;

std::string fatalOf(const std::string& content) {
    writeFile("config.txt", content);
    try {
        Config::read("config.txt");
    } catch (const error& e) {
        return e.message();
    }
    return "no error";
}

TEST(Config, ReadsNumbersSwitchesAndLogsTheResolution) {
    ScratchDir dir;
    writeFile("config.txt",
              "640\r\n480 ignored words\r\n# the band\r\n400\r\n   # comment\r\n40\r\n32\r\n2\r\n"
              "COUNTERS\r\nnosound\r\nARCHIVE first.dat\r\nLOWQUALITY extra\r\nARCHIVE demo.dat\r\n");
    test::startLog();
    Config c = Config::read("config.txt");
    auto lines = test::stopLogAndReadLines();
    EXPECT_EQ(c.hardwareWidth, 640);
    EXPECT_EQ(c.hardwareHeight, 480);
    EXPECT_EQ(c.windowHeight, 400);
    EXPECT_EQ(c.topOffset, 40);
    EXPECT_EQ(c.smallSlotCount, 32);
    EXPECT_EQ(c.screenSlotCount, 2);
    EXPECT_TRUE(c.counters);
    EXPECT_FALSE(c.nosound);  // keywords are case-sensitive
    EXPECT_TRUE(c.lowQuality);
    EXPECT_TRUE(c.archive);
    EXPECT_EQ(c.archiveName, "demo.dat");  // the last name wins
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[2], "Hardware resolution : 640 * 480");
    EXPECT_EQ(lines[3], "Window height : 400");
}

TEST(Config, MissingFileAndMissingValuesAreFatal) {
    ScratchDir dir;
    test::startLog();
    try {
        Config::read("config.txt");
        FAIL();
    } catch (const error& e) {
        EXPECT_EQ(e.message(), std::string("TextParser can not open file"));
    }
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[3], "Fatal: Parser : open failure of config.txt");

    const std::string noTokens = "Fatal: Parser : there is no tokens lefts in the line";
    EXPECT_EQ(fatalOf("640\n480\n400\n40\n32\n"), noTokens);
    EXPECT_EQ(fatalOf("640\n480\n400\n40\n32\n2\nARCHIVE\n"), noTokens);
}

TEST(Config, SizesThePlayerCannotShowAreRefused) {
    ScratchDir dir;
    EXPECT_EQ(fatalOf("0\n480\n400\n40\n32\n2\n"), "config.txt : invalid hardware resolution 0 * 480");
    EXPECT_EQ(fatalOf("640\n480\n400\n100\n32\n2\n"),
              "config.txt : the window band (height 400 at row 100) does not fit in the hardware height 480");
    EXPECT_EQ(fatalOf("640\n480\n400\n40\n-1\n2\n"), "config.txt : slot counts out of range (-1, 2)");
    EXPECT_EQ(fatalOf("640\n480\n480\n0\n32\n2\n"), "no error");  // the band is the whole display
}

}  // namespace
}  // namespace vz
