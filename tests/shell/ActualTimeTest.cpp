#include <gtest/gtest.h>

#include "shell/Player.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

// The time is cut to tenths in double precision, so a float just below a tenth logs the
// tenth below it.
TEST(ActualTime, SpaceLogsTheTimeCutToTenthsInDouble) {
    test::ScratchDir dir;
    test::startLog();
    for (float t : {0.7f, 0.8f, 12.37f, 0.0f}) logActualTime(t);
    auto lines = test::stopLogAndReadLines();
    EXPECT_EQ(std::vector<std::string>(lines.begin() + 2, lines.end() - 3),
              (std::vector<std::string>{"", "actualTime = 0.6", "", "actualTime = 0.8", "", "actualTime = 12.3", "",
                                        "actualTime = 0"}));
}

}  // namespace
}  // namespace vz
