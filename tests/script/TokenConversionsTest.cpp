#include "script/TokenConversions.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

TEST(TokenConversionsTest, RenduKeywordsAndNumbers) {
    const char* keywords[] = {"off", "glenz25", "glenz50", "glenz75", "normal", "add", "sub", "addnosat"};
    const int values[] = {0, 8, 16, 24, 32, 33, 34, 35};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(token2rendu(keywords[i]), values[i]) << keywords[i];
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
    const char* materials[] = {"texture32bpp", "textureAnysize32bpp", "texture8bpp", "gouraud8bpp",
                               "flatColor",    "flatPattern",         "gouraud32bpp", "dualTexture8bpp"};
    const int ids[] = {0, 1, 2, 3, 4, 5, 6, 8};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(token2materialId(materials[i]), ids[i]) << materials[i];
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
