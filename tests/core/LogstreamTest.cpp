#include "core/logstream.hpp"

#include <gtest/gtest.h>

#include <regex>

#include "core/error.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// `prefix` then the C library's local-time text: "Sat Nov 21 14:03:04 2026".
bool isDated(const std::string& line, const std::string& prefix) {
    return std::regex_match(line,
                            std::regex(prefix + "[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9][0-9] \\d\\d:\\d\\d:\\d\\d \\d{4}"));
}

TEST(Logstream, OpeningAndClosingLinesAroundOneRunOnly) {
    test::ScratchDir dir;
    test::startLog();
    logout() << "first run" << lend;
    logstream::instance().close();
    test::startLog();  // truncates: each run holds only itself
    logout() << "last line" << lend;
    EXPECT_EQ(test::readLines(logstream::fileName).back(), "last line");  // on disk as soon as it ends
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_TRUE(isDated(lines[0], "Opening log on ")) << lines[0];
    EXPECT_EQ(lines[1], std::string(60, '-'));
    EXPECT_EQ(lines[2], "last line");
    EXPECT_EQ(lines[3], "");  // close starts with a line end of its own
    EXPECT_TRUE(isDated(lines[4], "Closing log at ")) << lines[4];
    EXPECT_EQ(lines[5], std::string(60, '-'));
    EXPECT_EQ(test::readFile(logstream::fileName).back(), '\n');
}

TEST(Logstream, AnUnwritableLogIsFatal) {
    // A directory in the log's place cannot be opened for writing, even by root.
    test::ScratchDir dir;
    std::filesystem::create_directory(logstream::fileName);
    logstream::instance().reset();
    EXPECT_EQ(test::errorOf([] { logstream::instance().open(); }), "logstream: could not open file for writing");
    EXPECT_FALSE(logstream::instance().isOpen());
}

}  // namespace
}  // namespace vz
