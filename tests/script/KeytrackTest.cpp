#include "script/Keytrack.hpp"

#include <cmath>

#include "ScriptTestSupport.hpp"

namespace vz {
namespace {

template <class T = KeytrackFloat>
std::unique_ptr<T> trackFrom(const std::string& content) {
    test::writeFile("keys.txt", content);
    return T::load("keys.txt");
}

class KeytrackTest : public ::testing::Test {
protected:
    test::ScratchDir dir;
};

TEST_F(KeytrackTest, EveryInterpolationOnItsExamples) {
    const float shortPiCosine = static_cast<float>((1.0 - std::cos(0.5 * 3.14159)) * 10.0 * 0.5);
    const struct {
        const char* file;
        float time, value;
    } cases[] = {
        {"linear 2 1.0\n0 0\n10 2\n", 1.0f, 5.0f},
        {"# a comment\nlinear 2 0.5 # half speed\n\n0 0\n10 4\n", 1.0f, 5.0f},
        {"smooth 2 1\n0 0\n10 2\n", 1.0f, 5.0f},  // unknown names are linear
        {"square 3 1\n1 0\n2 1\n3 2\n", 0.99f, 1.0f},
        {"square 3 1\n1 0\n2 1\n3 2\n", 1.0f, 2.0f},
        {"cosinus 2 1\n0 0\n10 2\n", 1.0f, shortPiCosine},    // full-precision pi would give 5
        {"spline 4 1\n0 0\n10 1\n20 2\n0 3\n", 0.5f, 3.75f},  // previous key is the last one
        {"spline 4 1\n0 0\n10 1\n20 2\n0 3\n", 1.5f, 18.75f},
        {"spline 4 1\n0 0\n10 1\n20 2\n0 3\n", 2.5f, 11.25f},  // next-but-one key is the first one
    };
    for (const auto& c : cases) EXPECT_EQ(trackFrom(c.file)->sample(c.time), c.value) << c.file << c.time;
    EXPECT_NE(shortPiCosine, 5.0f);
}

TEST_F(KeytrackTest, TracksLoopWithThePeriodOfTheirLastKey) {
    auto track = trackFrom("linear 2 1.0\n0 0\n10 2\n");
    for (float t : {3.0f, -1.0f, -7.0f, 2001.0f}) EXPECT_FLOAT_EQ(track->sample(t), 5.0f) << t;
    EXPECT_FLOAT_EQ(track->sample(2.0f), 0.0f);
    // Far times and non-numbers stay inside the loop and return at once.
    float far = track->sample(1e30f);
    EXPECT_TRUE(far >= 0.0f && far < 10.0f);
    EXPECT_FLOAT_EQ(track->sample(NAN), 0.0f);
    EXPECT_FLOAT_EQ(track->sample(-INFINITY), 0.0f);
}

TEST_F(KeytrackTest, SplineWithFewerThanFourKeysBecomesLinearForGood) {
    auto track = trackFrom("spline 3 1\n0 0\n10 1\n0 2\n");
    EXPECT_EQ(track->interpolation, Spline);
    EXPECT_FLOAT_EQ(track->sample(0.5f), 5.0f);
    EXPECT_EQ(track->interpolation, Linear);
}

TEST_F(KeytrackTest, SegmentSearchRestartsAfterAJumpBack) {
    auto track = trackFrom("linear 5 1\n0 0\n10 1\n20 2\n30 3\n40 4\n");
    EXPECT_FLOAT_EQ(track->sample(3.5f), 35.0f);
    EXPECT_EQ(track->cacheIndex, 3);
    EXPECT_FLOAT_EQ(track->sample(0.5f), 5.0f);
    EXPECT_EQ(track->cacheIndex, 0);
    EXPECT_FLOAT_EQ(track->sample(4.5f), 5.0f);  // wrapped to 0.5
    EXPECT_FLOAT_EQ(track->sample(2.25f), 22.5f);
}

TEST_F(KeytrackTest, ShortFileIsLoggedAndLoopsOnTheKeysRead) {
    test::startLog();
    auto track = trackFrom("linear 10 1\n0 0\n1 1\n2 2\n3 3\n4 4\n5 5\n");
    EXPECT_TRUE(
        test::containsRun(test::stopLogAndReadLines(), {"Keytrack Building : there is only 6 keys in keys.txt"}));
    EXPECT_EQ(track->count(), 6);
    EXPECT_FLOAT_EQ(track->sample(5.5f), 0.5f);
}

TEST_F(KeytrackTest, IntegerSpriteAndVectorTracks) {
    EXPECT_EQ(trackFrom<KeytrackInt>("linear 2 1\n0 0\n10 1\n")->sample(0.99f), 9);
    EXPECT_EQ(trackFrom<KeytrackInt>("linear 2 1\n0 0\n-10 1\n")->sample(0.55f), -5);  // toward zero
    SpriteValue v = trackFrom<KeytrackSprite>("linear 2 1\n0 0 1 2 0\n2 4 3 6 2\n")->sample(1.0f);
    EXPECT_EQ(std::vector<float>({v.x, v.y, v.scaleX, v.scaleY}), std::vector<float>({1, 2, 2, 4}));
    Vector3 w = trackFrom<KeytrackVector3>("linear 2 1\n0 0 0 0\n2 4 6 2\n")->sample(0.5f);
    EXPECT_EQ(std::vector<float>({w.x, w.y, w.z}), std::vector<float>({0.5f, 1, 1.5f}));
    auto single = KeytrackFloat::constant(7.5f);
    EXPECT_FLOAT_EQ(single->sample(-3.0f), 7.5f);
    EXPECT_FLOAT_EQ(single->sample(1e6f), 7.5f);
    // A single key at a negative time is a constant, not a loop.
    EXPECT_FLOAT_EQ(trackFrom("linear 1 1\n4 -1\n")->sample(3.0f), 4.0f);
}

TEST_F(KeytrackTest, UnusableFilesAreRejectedByName) {
    const std::pair<const char*, const char*> cases[] = {
        {"linear 2 1\n0 0.5\n10 2\n", "the first key time is above 0"},
        {"linear 2 1\n0 -1\n10 0\n", "the last key time is not above 0"},
        {"linear 2 -1\n0 0\n10 2\n", "the last key time is not above 0"},
        {"linear -2 1\n0 0\n", "invalid key count -2"},
        {"linear 2000000 1\n0 0\n", "invalid key count 2000000"},
        {"linear 0 1\n0 0\n", "there is no key"},
        {"linear 3 1\n", "there is no key"},
        {"", "there is no key"},
        {"linear 2 1\n0 0\n10 inf\n", "invalid key time"},
    };
    for (const auto& [file, reason] : cases)
        EXPECT_EQ(test::errorOf([&] { trackFrom(file); }),
                  std::string("Keytrack Building : ") + reason + " in keys.txt")
            << file;
    EXPECT_EQ(test::errorOf([] { KeytrackFloat::load("missing.txt"); }), "TextParser can not open file");
}

}  // namespace
}  // namespace vz
