#include "script/TextParser.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

const std::string noTokens = "Fatal: Parser : there is no tokens lefts in the line";

// A parser opened on a file holding `content`, before its first line.
class TextParserTest : public ::testing::Test {
protected:
    TextParser& open(const std::string& content) {
        test::writeFile("a.txt", content);
        parser.open("a.txt");
        return parser;
    }
    std::string token() { return parser.getToken(); }
    // The next `count` tokens, blank-separated.
    std::string tokens(int count) {
        std::string text = token();
        while (--count > 0) {
            text += ' ';
            text += parser.getToken();
        }
        return text;
    }

    test::ScratchDir dir;
    TextParser parser;
};

TEST_F(TextParserTest, SkipsBlankAndCommentLines) {
    EXPECT_FALSE(open("\n   \n# a comment\n  # text\n\t\r\n").nextLine());
    open("# header\n\n  first line\n  # text\nsecond\n");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(tokens(2), "first line");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(token(), "second");
    EXPECT_EQ(parser.lineNumber(), 5);
    EXPECT_FALSE(parser.nextLine());
}

TEST_F(TextParserTest, HashGluedToATokenEndsItButNotTheLine) {
    ASSERT_TRUE(open("12#34 56\nx #y z\n").nextLine());
    EXPECT_EQ(tokens(3), "12 34 56");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(token(), "x");
    EXPECT_EQ(parser.peekChar(), '#');
    EXPECT_FALSE(parser.tokensLeft());
    EXPECT_EQ(test::errorOf([&] { parser.getToken(); }), noTokens);  // a separated # ends the line's tokens
}

TEST_F(TextParserTest, CarriageReturnsAndBareLineEndsBothEndTheLastToken) {
    ASSERT_TRUE(open("add tex Layer32bpp\r\nwait 10").nextLine());
    EXPECT_EQ(tokens(3), "add tex Layer32bpp");
    EXPECT_EQ(parser.peekChar(), '\0');
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(tokens(2), "wait 10");  // the file's last line, no line end at all
    EXPECT_FALSE(parser.tokensLeft());
    EXPECT_EQ(test::errorOf([&] { parser.getToken(); }), noTokens);
    EXPECT_FALSE(parser.nextLine());
}

TEST_F(TextParserTest, LongLinesAreSplitAt255Characters) {
    const std::string first(255, 'a'), rest(45, 'b');
    ASSERT_TRUE(open(first + rest + "\n").nextLine());
    EXPECT_EQ(token(), first);
    EXPECT_FALSE(parser.tokensLeft());
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(token(), rest);
    EXPECT_FALSE(parser.nextLine());
}

TEST_F(TextParserTest, NumbersScanLikeTheCLibrary) {
    ASSERT_TRUE(open("1.5 1.5 1.5 12abc -7 word\n").nextLine());
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

TEST_F(TextParserTest, OpenFailureLogsAndThrows) {
    test::startLog();
    EXPECT_EQ(test::errorOf([&] { parser.open("missing.txt"); }), "TextParser can not open file");
    auto lines = test::stopLogAndReadLines();
    ASSERT_GE(lines.size(), 5u);
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 2, lines.begin() + 5),
              test::framed("Fatal: Parser : open failure of missing.txt"));
}

}  // namespace
}  // namespace vz
