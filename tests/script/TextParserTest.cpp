#include "script/TextParser.hpp"

#include <gtest/gtest.h>

#include "shell/error.hpp"
#include "shell/logstream.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using test::ScratchDir;
using test::writeFile;

std::string noTokensText() { return "Fatal: Parser : there is no tokens lefts in the line"; }

TEST(TextParser, SkipsBlankAndCommentLines) {
    ScratchDir dir;
    writeFile("only-comments.txt", "\n   \n# a comment\n  # text\n\t\r\n");
    TextParser only;
    only.open("only-comments.txt");
    EXPECT_FALSE(only.nextLine());

    writeFile("mixed.txt", "# header\n\n  first line\n  # text\nsecond\n");
    TextParser parser;
    parser.open("mixed.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_STREQ(parser.getToken(), "first");
    EXPECT_STREQ(parser.getToken(), "line");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_STREQ(parser.getToken(), "second");
    EXPECT_EQ(parser.lineNumber(), 5);
    EXPECT_FALSE(parser.nextLine());
}

TEST(TextParser, HashGluedToATokenEndsItButNotTheLine) {
    ScratchDir dir;
    writeFile("a.txt", "12#34 56\nx #y z\n");
    TextParser parser;
    parser.open("a.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_STREQ(parser.getToken(), "12");
    EXPECT_STREQ(parser.getToken(), "34");
    EXPECT_STREQ(parser.getToken(), "56");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_STREQ(parser.getToken(), "x");
    EXPECT_EQ(parser.peekChar(), '#');
    EXPECT_FALSE(parser.tokensLeft());
    try {
        parser.getToken();
        FAIL() << "a separated # ends the line's tokens";
    } catch (const error& e) {
        EXPECT_EQ(e.message(), noTokensText());
    }
}

TEST(TextParser, RunningOutOfTokensIsFatal) {
    ScratchDir dir;
    writeFile("a.txt", "a b\n");
    TextParser parser;
    parser.open("a.txt");
    ASSERT_TRUE(parser.nextLine());
    parser.getToken();
    parser.getToken();
    EXPECT_THROW(parser.getToken(), error);
}

TEST(TextParser, CarriageReturnsAndBareLineEndsBothEndTheLastToken) {
    ScratchDir dir;
    writeFile("crlf.txt", "add tex Layer32bpp\r\nwait 10");
    TextParser parser;
    parser.open("crlf.txt");
    ASSERT_TRUE(parser.nextLine());
    parser.getToken();
    parser.getToken();
    EXPECT_STREQ(parser.getToken(), "Layer32bpp");
    EXPECT_EQ(parser.peekChar(), '\0');
    ASSERT_TRUE(parser.nextLine());
    parser.getToken();
    EXPECT_STREQ(parser.getToken(), "10");  // the file's last line, no line end at all
    EXPECT_FALSE(parser.tokensLeft());
    EXPECT_THROW(parser.getToken(), error);
    EXPECT_FALSE(parser.nextLine());
}

TEST(TextParser, LongLinesAreSplitAt255Characters) {
    ScratchDir dir;
    std::string first(255, 'a');
    std::string rest(45, 'b');
    writeFile("long.txt", first + rest + "\n");
    TextParser parser;
    parser.open("long.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(std::string(parser.getToken()), first);
    EXPECT_FALSE(parser.tokensLeft());
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(std::string(parser.getToken()), rest);
    EXPECT_FALSE(parser.nextLine());
}

TEST(TextParser, NumbersScanLikeTheCLibrary) {
    ScratchDir dir;
    writeFile("n.txt", "1.5 1.5 1.5 12abc -7 word\n");
    TextParser parser;
    parser.open("n.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(parser.getInt(), 1);
    EXPECT_FLOAT_EQ(parser.getFloat(), 1.5f);
    std::string copy = parser.getTokenCopy();
    EXPECT_TRUE(parser.lastTokenIs("1.5"));
    EXPECT_FALSE(parser.lastTokenIs("1.50"));
    EXPECT_EQ(parser.getInt(), 12);
    EXPECT_EQ(parser.getInt(), -7);
    EXPECT_EQ(parser.getInt(), 0);  // nothing converts: a defined 0
    EXPECT_FALSE(parser.nextLine());
    EXPECT_EQ(copy, "1.5");  // the copy outlives the line
}

TEST(TextParser, PeekTellsEntryLinesFromCommands) {
    ScratchDir dir;
    writeFile("s.txt", "  5 10 0 1 0\n.5 x\n");
    TextParser parser;
    parser.open("s.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(parser.peekChar(), '5');
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(parser.peekChar(), '.');
}

TEST(TextParser, OpenFailureLogsAndThrows) {
    ScratchDir dir;
    test::startLog();
    TextParser parser;
    try {
        parser.open("missing.txt");
        FAIL() << "expected an error";
    } catch (const error& e) {
        EXPECT_EQ(e.message(), std::string("TextParser can not open file"));
    }
    auto lines = test::stopLogAndReadLines();
    ASSERT_GE(lines.size(), 5u);
    EXPECT_EQ(lines[2], dashLine);
    EXPECT_EQ(lines[3], "Fatal: Parser : open failure of missing.txt");
    EXPECT_EQ(lines[4], dashLine);
}

}  // namespace
}  // namespace vz
