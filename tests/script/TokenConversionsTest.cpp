#include "script/TokenConversions.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

TEST(TokenConversionsTest, RenduKeywordsAndNumbers) {
    EXPECT_EQ(token2rendu("off"), 0);
    EXPECT_EQ(token2rendu("glenz25"), 8);
    EXPECT_EQ(token2rendu("glenz50"), 16);
    EXPECT_EQ(token2rendu("glenz75"), 24);
    EXPECT_EQ(token2rendu("normal"), 32);
    EXPECT_EQ(token2rendu("add"), 33);
    EXPECT_EQ(token2rendu("sub"), 34);
    EXPECT_EQ(token2rendu("addnosat"), 35);
    EXPECT_EQ(token2rendu("288"), 288);
    EXPECT_EQ(token2rendu("16"), 16);
    EXPECT_EQ(token2rendu("-3"), -3);
    EXPECT_EQ(token2rendu("99999999999"), 2147483647);
}

TEST(TokenConversionsTest, RenduWordThatIsNoNumberIsNormalAndNotLogged) {
    test::ScratchDir dir;
    test::startLog();
    EXPECT_EQ(token2rendu("Normal"), 32);
    EXPECT_EQ(token2rendu("glenz"), 32);
    auto lines = test::stopLogAndReadLines();
    for (const auto& line : lines) EXPECT_EQ(line.find("token2rendu"), std::string::npos);
}

TEST(TokenConversionsTest, OtherConversionsLogUnknownWordsAndFallBack) {
    test::ScratchDir dir;
    test::startLog();
    EXPECT_EQ(token2interpolation("square"), 0);
    EXPECT_EQ(token2interpolation("linear"), 1);
    EXPECT_EQ(token2interpolation("spline"), 2);
    EXPECT_EQ(token2interpolation("cosinus"), 3);
    EXPECT_EQ(token2materialId("texture32bpp"), 0);
    EXPECT_EQ(token2materialId("textureAnysize32bpp"), 1);
    EXPECT_EQ(token2materialId("texture8bpp"), 2);
    EXPECT_EQ(token2materialId("gouraud8bpp"), 3);
    EXPECT_EQ(token2materialId("flatColor"), 4);
    EXPECT_EQ(token2materialId("flatPattern"), 5);
    EXPECT_EQ(token2materialId("gouraud32bpp"), 6);
    EXPECT_EQ(token2materialId("dualTexture8bpp"), 8);
    EXPECT_TRUE(token2bool("true"));
    EXPECT_FALSE(token2bool("false"));
    auto clean = test::stopLogAndReadLines();
    EXPECT_EQ(clean.size(), 5u);  // opening and closing lines only

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
