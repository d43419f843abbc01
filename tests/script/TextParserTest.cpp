// The parser of script lines, and the conversions of the words it reads.
#include "script/TextParser.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"
#include "script/TokenConversions.hpp"

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

TEST(TokenConversionsTest, KnownWordsAndNumbersConvertWithoutALogLine) {
    test::ScratchDir dir;
    test::startLog();
    const std::pair<const char*, int> rendus[] = {
        {"off", 0},
        {"glenz25", 8},
        {"glenz50", 16},
        {"glenz75", 24},
        {"normal", 32},
        {"add", 33},
        {"sub", 34},
        {"addnosat", 35},
        {"288", 288},
        {"-3", -3},
        {"99999999999", 2147483647},
        {"Normal", 32},
        {"glenz", 32},  // a word that is no number is normal, silently
    };
    for (const auto& [word, value] : rendus) EXPECT_EQ(token2rendu(word), value) << word;
    const std::pair<const char*, int> interpolations[] = {{"square", 0}, {"linear", 1}, {"spline", 2}, {"cosinus", 3}};
    for (const auto& [word, value] : interpolations) EXPECT_EQ(token2interpolation(word), value) << word;
    const std::pair<const char*, int> materials[] = {
        {"texture32bpp", 0}, {"textureAnysize32bpp", 1}, {"texture8bpp", 2},  {"gouraud8bpp", 3},
        {"flatColor", 4},    {"flatPattern", 5},         {"gouraud32bpp", 6}, {"dualTexture8bpp", 8}};
    for (const auto& [word, value] : materials) EXPECT_EQ(token2materialId(word), value) << word;
    EXPECT_TRUE(token2bool("true"));
    EXPECT_FALSE(token2bool("false"));
    EXPECT_EQ(test::stopLogAndReadLines().size(), 5u);  // opening and closing lines only
}

TEST(TokenConversionsTest, OtherConversionsLogUnknownWordsAndFallBack) {
    test::ScratchDir dir;
    test::startLog();
    EXPECT_EQ(token2interpolation("Linear"), 1);
    EXPECT_EQ(token2materialId("texture"), 4);
    EXPECT_FALSE(token2bool("yes"));
    auto lines = test::stopLogAndReadLines();
    EXPECT_TRUE(
        test::containsRun(lines, test::framed("token2interpolation : Interpolation type not supported : Linear")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("token2materialId : type not supported : texture")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("token2bool : keyword must be true or false : yes")));
}

}  // namespace
}  // namespace vz
