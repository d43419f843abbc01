#include "shell/logstream.hpp"

#include <gtest/gtest.h>

#include <cctype>

#include "shell/error.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using test::ScratchDir;

// The C library's local-time text: "Sat Nov 21 14:03:04 2026".
bool isDateText(const std::string& s) {
    const std::string shape = "Aaa Aaa #9 99:99:99 9999";
    if (s.size() != shape.size()) return false;
    for (std::size_t i = 0; i < s.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        bool ok = shape[i] == 'A'   ? std::isupper(c)
                  : shape[i] == 'a' ? std::islower(c)
                  : shape[i] == '9' ? std::isdigit(c)
                  : shape[i] == '#' ? (c == ' ' || std::isdigit(c))
                                    : c == static_cast<unsigned char>(shape[i]);
        if (!ok) return false;
    }
    return true;
}

TEST(Logstream, OpeningAndClosingLines) {
    ScratchDir dir;
    test::startLog();
    logout() << "last line" << lend;
    auto lines = test::stopLogAndReadLines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0].substr(0, 15), "Opening log on ");
    EXPECT_TRUE(isDateText(lines[0].substr(15))) << lines[0];
    EXPECT_EQ(lines[1], std::string(60, '-'));
    EXPECT_EQ(lines[2], "last line");
    EXPECT_EQ(lines[3], "");  // close starts with a line end of its own
    EXPECT_TRUE(isDateText(lines[4].substr(15))) << lines[4];
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
