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

// Each file's track sampled at its times in turn, one track per file: every
// interpolation, the loop with the period of the last key, and a jump back in time.
TEST_F(KeytrackTest, SamplesOfEachFileInTurn) {
    const float shortPiCosine = static_cast<float>((1.0 - std::cos(0.5 * 3.14159)) * 10.0 * 0.5);
    const std::pair<const char*, std::vector<std::pair<float, float>>> cases[] = {
        {"linear 2 1.0\n0 0\n10 2\n",
         {{1.0f, 5.0f},
          {3.0f, 5.0f},
          {-1.0f, 5.0f},
          {-7.0f, 5.0f},
          {2001.0f, 5.0f},
          {2.0f, 0.0f},
          {NAN, 0.0f},
          {-INFINITY, 0.0f}}},
        {"# a comment\nlinear 2 0.5 # half speed\n\n0 0\n10 4\n", {{1.0f, 5.0f}}},
        {"smooth 2 1\n0 0\n10 2\n", {{1.0f, 5.0f}}},  // unknown names are linear
        {"square 3 1\n1 0\n2 1\n3 2\n", {{0.99f, 1.0f}, {1.0f, 2.0f}}},
        {"cosinus 2 1\n0 0\n10 2\n", {{1.0f, shortPiCosine}}},  // full-precision pi would give 5
        // The previous key of the first segment is the last one; the next-but-one key of
        // the last segment is the first one.
        {"spline 4 1\n0 0\n10 1\n20 2\n0 3\n", {{0.5f, 3.75f}, {1.5f, 18.75f}, {2.5f, 11.25f}}},
        {"spline 3 1\n0 0\n10 1\n0 2\n", {{0.5f, 5.0f}, {0.5f, 5.0f}}},  // fewer than four keys: linear
        {"linear 5 1\n0 0\n10 1\n20 2\n30 3\n40 4\n", {{3.5f, 35.0f}, {0.5f, 5.0f}, {4.5f, 5.0f}, {2.25f, 22.5f}}},
        {"linear 1 1\n4 -1\n", {{3.0f, 4.0f}}},  // a single key at a negative time is a constant
    };
    for (const auto& [file, samples] : cases) {
        auto track = trackFrom(file);
        for (const auto& [time, value] : samples) EXPECT_EQ(track->sample(time), value) << file << time;
    }
    EXPECT_NE(shortPiCosine, 5.0f);
    // Far times stay inside the loop and return at once.
    const float far = trackFrom("linear 2 1.0\n0 0\n10 2\n")->sample(1e30f);
    EXPECT_TRUE(far >= 0.0f && far < 10.0f);
}

TEST_F(KeytrackTest, ShortFileIsLoggedAndLoopsOnTheKeysRead) {
    test::startLog();
    auto track = trackFrom("linear 10 1\n0 0\n1 1\n2 2\n3 3\n4 4\n5 5\n");
    EXPECT_TRUE(
        test::containsRun(test::stopLogAndReadLines(), {"Keytrack Building : there is only 6 keys in keys.txt"}));
    EXPECT_EQ(track->count(), 6);
    EXPECT_FLOAT_EQ(track->sample(5.5f), 0.5f);
}

TEST_F(KeytrackTest, IntegerAndVectorTracks) {
    EXPECT_EQ(trackFrom<KeytrackInt>("linear 2 1\n0 0\n10 1\n")->sample(0.99f), 9);
    EXPECT_EQ(trackFrom<KeytrackInt>("linear 2 1\n0 0\n-10 1\n")->sample(0.55f), -5);  // toward zero
    Vector3 w = trackFrom<KeytrackVector3>("linear 2 1\n0 0 0 0\n2 4 6 2\n")->sample(0.5f);
    EXPECT_EQ(std::vector<float>({w.x, w.y, w.z}), std::vector<float>({0.5f, 1, 1.5f}));
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
