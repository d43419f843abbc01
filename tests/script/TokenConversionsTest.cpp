#include "script/TokenConversions.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

TEST(TokenConversionsTest, KnownWordsAndNumbersConvertWithoutALogLine) {
    test::ScratchDir dir;
    test::startLog();
    const std::pair<const char*, int> rendus[] = {
        {"off", 0},  {"glenz25", 8},  {"glenz50", 16}, {"glenz75", 24}, {"normal", 32}, {"add", 33},
        {"sub", 34}, {"addnosat", 35}, {"288", 288},   {"-3", -3},      {"99999999999", 2147483647},
        {"Normal", 32}, {"glenz", 32},  // a word that is no number is normal, silently
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
    EXPECT_TRUE(test::containsRun(lines, test::framed("token2interpolation : Interpolation type not supported : Linear")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("token2materialId : type not supported : texture")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("token2bool : keyword must be true or false : yes")));
}

}  // namespace
}  // namespace vz
