#include "script/Keytrack.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

template <class T>
std::unique_ptr<T> trackFrom(const std::string& content) {
    test::writeFile("keys.txt", content);
    return T::load("keys.txt");
}

class KeytrackTest : public ::testing::Test {
protected:
    test::ScratchDir dir;
};

TEST_F(KeytrackTest, LinearTrackLoopsWithThePeriodOfItsLastKey) {
    auto track = trackFrom<KeytrackFloat>("linear 2 1.0\n0 0\n10 2\n");
    EXPECT_FLOAT_EQ(track->sample(1.0f), 5.0f);
    EXPECT_FLOAT_EQ(track->sample(2.0f), 0.0f);
    EXPECT_FLOAT_EQ(track->sample(3.0f), 5.0f);
    EXPECT_FLOAT_EQ(track->sample(-1.0f), 5.0f);
    EXPECT_FLOAT_EQ(track->sample(-7.0f), 5.0f);
    EXPECT_FLOAT_EQ(track->sample(2001.0f), 5.0f);
    // Far times and non-numbers stay inside the loop and return at once.
    float far = track->sample(1e30f);
    EXPECT_TRUE(far >= 0.0f && far < 10.0f);
    EXPECT_FLOAT_EQ(track->sample(NAN), 0.0f);
    EXPECT_FLOAT_EQ(track->sample(-INFINITY), 0.0f);
}

TEST_F(KeytrackTest, TimeScaleAndCommentsInKeyFiles) {
    auto track = trackFrom<KeytrackFloat>("# a comment\nlinear 2 0.5 # half speed\n\n0 0\n10 4\n");
    ASSERT_EQ(track->count(), 2);
    EXPECT_FLOAT_EQ(track->times[1], 2.0f);
    EXPECT_FLOAT_EQ(track->sample(1.0f), 5.0f);
}

TEST_F(KeytrackTest, SquareHoldsEachKeyUntilTheNext) {
    auto track = trackFrom<KeytrackFloat>("square 3 1\n1 0\n2 1\n3 2\n");
    EXPECT_FLOAT_EQ(track->sample(0.0f), 1.0f);
    EXPECT_FLOAT_EQ(track->sample(0.99f), 1.0f);
    EXPECT_FLOAT_EQ(track->sample(1.0f), 2.0f);
    EXPECT_FLOAT_EQ(track->sample(1.5f), 2.0f);
}

TEST_F(KeytrackTest, CosinusUsesTheShortPiConstant) {
    auto track = trackFrom<KeytrackFloat>("cosinus 2 1\n0 0\n10 2\n");
    float expected = static_cast<float>((1.0 - std::cos(0.5 * 3.14159)) * 10.0 * 0.5);
    EXPECT_EQ(track->sample(1.0f), expected);
    EXPECT_NE(track->sample(1.0f), 5.0f);  // full-precision pi would give 5 exactly
    EXPECT_NEAR(track->sample(0.5f), 5.0 * (1.0 - std::cos(0.25 * 3.14159)), 1e-5);
}

TEST_F(KeytrackTest, SplineNeighboursWrapAroundTheLoop) {
    auto track = trackFrom<KeytrackFloat>("spline 4 1\n0 0\n10 1\n20 2\n0 3\n");
    EXPECT_FLOAT_EQ(track->sample(0.5f), 3.75f);   // previous key is the last one
    EXPECT_FLOAT_EQ(track->sample(1.5f), 18.75f);
    EXPECT_FLOAT_EQ(track->sample(2.5f), 11.25f);  // next-but-one key is the first one
    EXPECT_EQ(track->interpolation, Spline);
}

TEST_F(KeytrackTest, SplineWithFewerThanFourKeysBecomesLinearForGood) {
    auto track = trackFrom<KeytrackFloat>("spline 3 1\n0 0\n10 1\n0 2\n");
    EXPECT_EQ(track->interpolation, Spline);
    EXPECT_FLOAT_EQ(track->sample(0.5f), 5.0f);
    EXPECT_EQ(track->interpolation, Linear);
}

TEST_F(KeytrackTest, SegmentSearchRestartsAfterAJumpBack) {
    auto track = trackFrom<KeytrackFloat>("linear 5 1\n0 0\n10 1\n20 2\n30 3\n40 4\n");
    EXPECT_FLOAT_EQ(track->sample(3.5f), 35.0f);
    EXPECT_EQ(track->cacheIndex, 3);
    EXPECT_FLOAT_EQ(track->sample(0.5f), 5.0f);
    EXPECT_EQ(track->cacheIndex, 0);
    EXPECT_FLOAT_EQ(track->sample(4.5f), 5.0f);  // wrapped to 0.5
    EXPECT_FLOAT_EQ(track->sample(2.25f), 22.5f);
    EXPECT_FLOAT_EQ(track->cacheTime, 2.25f);
}

TEST_F(KeytrackTest, ShortFileIsLoggedAndLoopsOnTheKeysRead) {
    test::startLog();
    auto track = trackFrom<KeytrackFloat>("linear 10 1\n0 0\n1 1\n2 2\n3 3\n4 4\n5 5\n");
    auto lines = test::stopLogAndReadLines();
    EXPECT_TRUE(test::containsRun(lines, {"Keytrack Building : there is only 6 keys in keys.txt"}));
    EXPECT_EQ(track->count(), 6);
    EXPECT_FLOAT_EQ(track->sample(5.5f), 0.5f);
}

TEST_F(KeytrackTest, UnknownInterpolationIsLinear) {
    auto track = trackFrom<KeytrackFloat>("smooth 2 1\n0 0\n10 2\n");
    EXPECT_EQ(track->interpolation, Linear);
}

TEST_F(KeytrackTest, IntegerTracksTruncateTowardZero) {
    auto up = trackFrom<KeytrackInt>("linear 2 1\n0 0\n10 1\n");
    EXPECT_EQ(up->sample(0.55f), 5);
    EXPECT_EQ(up->sample(0.99f), 9);
    auto down = trackFrom<KeytrackInt>("linear 2 1\n0 0\n-10 1\n");
    EXPECT_EQ(down->sample(0.55f), -5);
}

TEST_F(KeytrackTest, EveryComponentIsInterpolated) {
    auto sprite = trackFrom<KeytrackSprite>("linear 2 1\n0 0 1 2 0\n2 4 3 6 2\n");
    SpriteValue v = sprite->sample(1.0f);
    EXPECT_FLOAT_EQ(v.x, 1.0f);
    EXPECT_FLOAT_EQ(v.y, 2.0f);
    EXPECT_FLOAT_EQ(v.scaleX, 2.0f);
    EXPECT_FLOAT_EQ(v.scaleY, 4.0f);
    auto vector = trackFrom<KeytrackVector3>("linear 2 1\n0 0 0 0\n2 4 6 2\n");
    Vector3 w = vector->sample(0.5f);
    EXPECT_FLOAT_EQ(w.x, 0.5f);
    EXPECT_FLOAT_EQ(w.y, 1.0f);
    EXPECT_FLOAT_EQ(w.z, 1.5f);
}

TEST_F(KeytrackTest, OneKeyTracksAndUnknownKinds) {
    auto single = KeytrackFloat::constant(7.5f);
    EXPECT_FLOAT_EQ(single->sample(-3.0f), 7.5f);
    EXPECT_FLOAT_EQ(single->sample(1e6f), 7.5f);
    EXPECT_EQ(single->interpolation, Spline);

    auto track = trackFrom<KeytrackFloat>("linear 2 1\n0 0\n10 2\n");
    track->interpolation = 7;
    float value = -1.0f;
    track->evaluate(1.0f, value);
    EXPECT_FLOAT_EQ(value, -1.0f);
}

TEST_F(KeytrackTest, UnusableFilesAreRejectedByName) {
    auto errorFor = [](const std::string& content) {
        return test::errorOf([&] { trackFrom<KeytrackFloat>(content); });
    };
    EXPECT_EQ(errorFor("linear 2 1\n0 0.5\n10 2\n"), "Keytrack Building : the first key time is above 0 in keys.txt");
    EXPECT_EQ(errorFor("linear 2 1\n0 -1\n10 0\n"), "Keytrack Building : the last key time is not above 0 in keys.txt");
    EXPECT_EQ(errorFor("linear 2 -1\n0 0\n10 2\n"), "Keytrack Building : the last key time is not above 0 in keys.txt");
    EXPECT_EQ(errorFor("linear -2 1\n0 0\n"), "Keytrack Building : invalid key count -2 in keys.txt");
    EXPECT_EQ(errorFor("linear 2000000 1\n0 0\n"), "Keytrack Building : invalid key count 2000000 in keys.txt");
    EXPECT_EQ(errorFor("linear 0 1\n0 0\n"), "Keytrack Building : there is no key in keys.txt");
    EXPECT_EQ(errorFor("linear 3 1\n"), "Keytrack Building : there is no key in keys.txt");
    EXPECT_EQ(errorFor(""), "Keytrack Building : there is no key in keys.txt");
    EXPECT_EQ(errorFor("linear 2 1\n0 0\n10 inf\n"), "Keytrack Building : invalid key time in keys.txt");
    EXPECT_EQ(test::errorOf([] { KeytrackFloat::load("missing.txt"); }), "TextParser can not open file");
    // A single key at a negative time is a constant, not a loop.
    EXPECT_FLOAT_EQ(trackFrom<KeytrackFloat>("linear 1 1\n4 -1\n")->sample(3.0f), 4.0f);
}

}  // namespace
}  // namespace vz
