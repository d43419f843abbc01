#include "script/generators/KeytrackGenerator.hpp"

#include <cmath>

#include "tests/script/TimelineProbes.hpp"

namespace vz::test {
namespace {

class KeytrackGeneratorTest : public TimelineTest {
protected:
    template <class V>
    Keytrack<V>& declare(const std::string& name, std::vector<float> times, std::vector<V> values) {
        auto track = std::make_unique<Keytrack<V>>();
        track->times = std::move(times);
        track->values = std::move(values);
        Keytrack<V>& held = *track;
        show.repository.add(std::make_unique<Symbol>(std::move(track)), name);
        return held;
    }

    // The draw of a noise term after `earlier` draws from `seed`, for amplitude ampl.
    static float noise(std::uint32_t seed, int earlier, float ampl) {
        for (int i = 0; i <= earlier; ++i) seed = (seed * 997u) & 0xFFFFu;
        return static_cast<float>((seed * 65535u) >> 16) * (2.0f * ampl) * (1.0f / 65535.0f) - ampl;
    }
};

TEST_F(KeytrackGeneratorTest, SinusWritesOneSquareKeyAtZeroAndZeroAmplitudeCopiesTheSource) {
    declare<float>("src", {0, 2}, {0, 10});
    KeytrackFloat& copy = declare<float>("copy", {0, 1, 2}, {7, 8, 9});
    KeytrackFloat& wobble = declare<float>("wobble", {0}, {0});
    auto s = play(
        "keytrackFloatSinus copy src 0 3\n0 100 0 1 0\nkeytrackFloatSinus wobble constFloat 1 0.5 3\n"
        "0 100 0 1 0\n");
    for (float t : {0.5f, 1.25f}) {
        s->run(t);
        EXPECT_FLOAT_EQ(wobble.values[0], 1.0f + std::sin(t + std::cos(t * 3.0f))) << t;
    }
    ASSERT_EQ(copy.count(), 1);
    EXPECT_EQ(copy.times[0], 0.0f);
    EXPECT_EQ(copy.interpolation, Square);
    EXPECT_FLOAT_EQ(copy.values[0], 6.25f);
}

// The first generator takes seed 3; each animated part of the next takes a seed of its own.
TEST_F(KeytrackGeneratorTest, NoiseHoldsEachDrawForOnePeriodAndEachPartHasItsOwnSeed) {
    KeytrackFloat& dst = declare<float>("dst", {0}, {0});
    KeytrackVector2& pair = declare<Vector2>("pair", {0}, {{}});
    auto s = play(
        "keytrackFloatNoise dst constFloat 10 2 0.5\n0 100 0 1 0\n"
        "keytrackVector2Noise pair constVector2 0 0 1 3 1\n0 100 0 1 0\n");
    s->run(0.25f);
    EXPECT_FLOAT_EQ(dst.values[0], 10.0f + 2990.0f * 4.0f / 65535.0f - 2.0f);  // seed 3 x 997 = 2991
    EXPECT_FLOAT_EQ(pair.values[0].x, noise(4, 0, 1.0f));
    EXPECT_FLOAT_EQ(pair.values[0].y, noise(5, 0, 3.0f));
    s->run(0.625f);
    EXPECT_FLOAT_EQ(dst.values[0], 10.0f + noise(3, 0, 2.0f));
    for (float t : {0.75f, 1.0f}) {  // 0.25 + 0.5: the next draw is due, then held
        s->run(t);
        EXPECT_FLOAT_EQ(dst.values[0], 10.0f + noise(3, 1, 2.0f)) << t;
    }
}

TEST_F(KeytrackGeneratorTest, TargetMustBeADeclaredTrackOfTheRightKind) {
    declare<float>("dst", {0}, {0});
    for (const char* line : {"keytrackFloatSinus constFloat 1 constFloat 1 1 1\n",  // no constant target
                             "keytrackVector2Sinus dst constVector2 0 0 1 1 1\n"})  // dst holds floats
        EXPECT_EQ(errorOf([&] { play(line)->run(1.0f); }), "Repository::aquire failure") << line;
}

}  // namespace
}  // namespace vz::test
