#include "core/logstream.hpp"

#include <gtest/gtest.h>

#include <cctype>

#include "core/error.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// `prefix` then the C library's local-time text: "Sat Nov 21 14:03:04 2026".
// (Shape letters: A upper case, a lower case, 9 digit, # blank or digit.)
bool isDated(const std::string& line, const std::string& prefix) {
    const std::string shape = "Aaa Aaa #9 99:99:99 9999";
    if (line.rfind(prefix, 0) != 0 || line.size() != prefix.size() + shape.size()) return false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(line[prefix.size() + i]);
        const bool fits = shape[i] == 'A'   ? std::isupper(c)
                          : shape[i] == 'a' ? std::islower(c)
                          : shape[i] == '9' ? std::isdigit(c)
                          : shape[i] == '#' ? c == ' ' || std::isdigit(c)
                                            : c == static_cast<unsigned char>(shape[i]);
        if (!fits) return false;
    }
    return true;
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
