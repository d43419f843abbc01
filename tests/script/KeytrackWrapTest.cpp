// The loop of a keytrack is taken by adding and subtracting its period in floats, as the
// key files were timed with; a computed remainder rounds differently and, at key
// boundaries, picks the neighbouring segment.
#include <gtest/gtest.h>

#include <limits>

#include "ScriptTestSupport.hpp"
#include "script/Keytrack.hpp"

namespace vz {
namespace {

TEST(KeytrackWrap, FrameTimesAtKeyBoundariesKeepTheirSegment) {
    test::ScratchDir dir;
    test::writeFile("steps.txt", "square 4 1\n10 0\n20 0.1\n30 0.2\n10 0.3\n");
    auto track = KeytrackInt::load("steps.txt");
    // Frames at 50 per second: the wrapped time of frame 75 (1.5 s) is just below 0.3,
    // then one subtraction lands on 0; a remainder would say 0.29999... (the last step).
    const struct {
        int frame;
        int value;
    } frames[] = {{75, 10}, {85, 30}, {90, 10}, {100, 30}, {105, 10}, {-75, 10}};
    for (const auto& f : frames) EXPECT_EQ(track->sample(static_cast<float>(f.frame) / 50.0f), f.value) << f.frame;
}

TEST(KeytrackWrap, TimesFarOutsideTheLoopEndAtAKeyValue) {
    test::ScratchDir dir;
    test::writeFile("steps.txt", "square 4 1\n10 0\n20 0.1\n30 0.2\n10 0.3\n");
    auto track = KeytrackInt::load("steps.txt");
    // Beyond 65,536 periods (and where adding the period no longer moves the float) the
    // remainder is computed: the evaluation ends, with one of the keys.
    for (float t : {3e7f, -3e7f, 1e30f, -1e30f, std::numeric_limits<float>::max()}) {
        const int value = track->sample(t);
        EXPECT_TRUE(value == 10 || value == 20 || value == 30) << t << " gave " << value;
    }
    EXPECT_EQ(track->sample(std::numeric_limits<float>::quiet_NaN()), 10);  // taken as 0
}

}  // namespace
}  // namespace vz
