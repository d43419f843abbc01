// The parser of script lines, and the conversions of the words it reads. A file that
// cannot be opened is the player-run test of a missing script: its log lines and text.
#include "ScriptTestSupport.hpp"
#include "script/TokenConversions.hpp"

namespace vz::test {
namespace {

const std::string noTokens = "Fatal: Parser : there is no tokens lefts in the line";

class TextParserTest : public ::testing::Test {
protected:
    // The lines of a file holding `content` as "NUMBER:TOKENS", the tokens blank-separated,
    // and "|CHAR" when the character after the last token is not the line's end.
    std::vector<std::string> linesOf(const std::string& content) {
        writeFile("a.txt", content);
        parser.open("a.txt");
        std::vector<std::string> lines;
        while (parser.nextLine()) {
            std::string line = std::to_string(parser.lineNumber()) + ":";
            for (int i = 0; parser.tokensLeft(); ++i) line.append(i ? " " : "").append(parser.getToken());
            if (parser.peekChar() != '\0') line += std::string("|") + parser.peekChar();
            EXPECT_EQ(errorOf([&] { parser.getToken(); }), noTokens) << line;
            lines.push_back(line);
        }
        return lines;
    }

    ScratchDir dir;
    TextParser parser;
};

TEST_F(TextParserTest, TokensOfEachLine) {
    const std::string a255(255, 'a'), b45(45, 'b');
    const std::pair<std::string, std::vector<std::string>> files[] = {
        {"\n   \n# a comment\n  # text\n\t\r\n", {}},  // blank and comment lines are skipped
        {"# header\n\n  first line\n  # text\nsecond\n", {"3:first line", "5:second"}},
        {"12#34 56\nx #y z\n", {"1:12 34 56", "2:x|#"}},  // a glued hash ends a token, a separated one the line
        {"add tex Layer32bpp\r\nwait 10", {"1:add tex Layer32bpp", "2:wait 10"}},  // CR, and no line end at all
        {a255 + b45 + "\n", {"1:" + a255, "1:" + b45}},  // long lines are split at 255, the number kept
    };
    for (const auto& [content, lines] : files) EXPECT_EQ(linesOf(content), lines) << content;
}

TEST_F(TextParserTest, NumbersScanLikeTheCLibrary) {
    writeFile("a.txt", "1.5 1.5 1.5 12abc -7 word\n");
    parser.open("a.txt");
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

TEST(TokenConversionsTest, KnownWordsAndNumbersConvertWithoutALogLine) {
    ScratchDir dir;
    startLog();
    // Case counts: "Normal" and "glenz" are neither a word nor a number, so normal, silently.
    const std::pair<const char*, int> rendus[] = {{"off", 0},     {"glenz25", 8}, {"glenz50", 16}, {"glenz75", 24},
                                                  {"normal", 32}, {"add", 33},    {"sub", 34},     {"addnosat", 35},
                                                  {"288", 288},   {"-3", -3},     {"Normal", 32},  {"glenz", 32}};
    for (const auto& [word, value] : rendus) EXPECT_EQ(token2rendu(word), value) << word;
    EXPECT_EQ(token2rendu("99999999999"), 2147483647);
    // The interpolation words are read by the key file tests; the material words are a
    // table of their own, used by the material tests; one here.
    EXPECT_EQ(token2materialId("dualTexture8bpp"), 8);
    EXPECT_TRUE(token2bool("true"));
    EXPECT_FALSE(token2bool("false"));
    EXPECT_EQ(stopLogAndReadLines().size(), 5u);  // opening and closing lines only
}

TEST(TokenConversionsTest, OtherConversionsLogUnknownWordsAndFallBack) {
    ScratchDir dir;
    startLog();
    EXPECT_EQ(token2interpolation("Linear"), 1);
    EXPECT_EQ(token2materialId("texture"), 4);
    EXPECT_FALSE(token2bool("yes"));
    auto lines = stopLogAndReadLines();
    for (const char* fatal :
         {"token2interpolation : Interpolation type not supported : Linear",
          "token2materialId : type not supported : texture", "token2bool : keyword must be true or false : yes"})
        EXPECT_TRUE(containsRun(lines, framed(fatal))) << fatal;
}

}  // namespace
}  // namespace vz::test
