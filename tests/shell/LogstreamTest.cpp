#include "shell/logstream.hpp"

#include <gtest/gtest.h>

#include <regex>

#include "shell/error.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using test::ScratchDir;

const std::regex dateText(R"([A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9]\d \d\d:\d\d:\d\d \d{4})");

TEST(Logstream, OpeningAndClosingLines) {
    ScratchDir dir;
    test::startLog();
    logout() << "last line" << lend;
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_TRUE(std::regex_match(lines[0], std::regex("Opening log on " + std::string(R"(.*)"))));
    EXPECT_TRUE(std::regex_match(lines[0].substr(15), dateText)) << lines[0];
    EXPECT_EQ(lines[1], std::string(60, '-'));
    EXPECT_EQ(lines[2], "last line");
    EXPECT_EQ(lines[3], "");  // close starts with a line end of its own
    EXPECT_TRUE(std::regex_match(lines[4].substr(15), dateText)) << lines[4];
    EXPECT_EQ(lines[4].substr(0, 15), "Closing log at ");
    EXPECT_EQ(lines[5], std::string(60, '-'));
    EXPECT_EQ(test::readFile(logstream::fileName).back(), '\n');
}

TEST(Logstream, ResetTruncatesSoEachRunHoldsOnlyItself) {
    ScratchDir dir;
    test::startLog();
    logout() << "first run" << lend;
    logstream::instance().close();
    test::startLog();
    logout() << "second run" << lend;
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[2], "second run");
}

TEST(Logstream, EveryLineIsOnDiskAsSoonAsItEnds) {
    ScratchDir dir;
    test::startLog();
    logout() << "flushed" << lend;
    EXPECT_EQ(test::readLines(logstream::fileName).back(), "flushed");
    logstream::instance().close();
}

TEST(Logstream, AnUnwritableLogIsFatal) {
    // A directory in the log's place cannot be opened for writing, even by root.
    ScratchDir dir;
    std::filesystem::create_directory(logstream::fileName);
    logstream::instance().reset();
    try {
        logstream::instance().open();
        FAIL();
    } catch (const error& e) {
        EXPECT_EQ(e.message(), std::string("logstream: could not open file for writing"));
    }
    EXPECT_FALSE(logstream::instance().isOpen());
}

}  // namespace
}  // namespace vz
