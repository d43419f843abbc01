#include "script/composites/Composite.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "script/Repository.hpp"
#include "shell/error.hpp"
#include "support/TestSupport.hpp"
#include "tests/script/RecordingComponent.hpp"

namespace vz::test {
namespace {

class CompositeTest : public ::testing::Test {
protected:
    void SetUp() override {
        Repository::instance().clear();
        endOfDemo() = false;
        journal().clear();
    }
    void TearDown() override {
        Repository::instance().clear();
        endOfDemo() = false;
    }

    std::unique_ptr<Sequencer> play(const std::string& main, const std::string& inner) {
        writeFile("inner.txt", inner);
        writeFile("main.txt", main);
        return std::make_unique<Sequencer>("main.txt", &probes());
    }

    ScratchDir dir;
};

TEST_F(CompositeTest, NestedScriptRunsOnTheCompositeLocalTime) {
    auto s = play("composite inner.txt\n2 10 1 2 0\n", "record x\n0 100 0 1 0\nwait 5\nrecord y\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "");
    EXPECT_EQ(frame(*s, 2.0f), "x@1");
    EXPECT_EQ(frame(*s, 4.0f), "x@5");  // the nested wait 5 holds at local time 5
    EXPECT_EQ(frame(*s, 4.5f), "x@6 y@6");
    EXPECT_EQ(frame(*s, 10.0f), "~x ~y");  // the composite ends with its nested components
}

TEST_F(CompositeTest, FrameDependentCompositeRunsOnlyAfterMoreThanOneInterval) {
    auto s = play("frameDependentComposite inner.txt 4\n0 100 0 1 0\n", "record x\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 0.5f), "x@0.5");
    EXPECT_EQ(frame(*s, 0.625f), "");
    EXPECT_EQ(frame(*s, 0.75f), "");  // exactly one interval (0.25) later
    EXPECT_EQ(frame(*s, 0.765625f), "x@0.765625");
}

TEST_F(CompositeTest, FirstRunNeedsLocalTimeAboveOneIntervalMinusOne) {
    auto s = play("frameDependentComposite inner.txt 0.5\n0 100 -1.5 1 0\n", "record x\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 2.5f), "");  // local 1 = -1 + interval 2: not strictly above
    EXPECT_EQ(frame(*s, 2.75f), "x@1.25");
}

TEST_F(CompositeTest, ZeroFpsNeverRuns) {
    auto s = play("frameDependentComposite inner.txt 0\n0 100 0 1 0\n", "record x\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "");
    EXPECT_EQ(frame(*s, 99.0f), "");
}

TEST_F(CompositeTest, TwoCompositesOnOneFileKeepOwnTimelinesButShareTheRepository) {
    startLog();
    auto s = play("composite inner.txt\n0 100 0 1 0\ncomposite inner.txt\n0 100 5 1 1\n",
                  "add c Color 0 1 2 3\nrecord r\n0 100 0 1 0\nwait 2\nrecord s\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "r@1 r@6 s@6");
    EXPECT_EQ(frame(*s, 3.0f), "r@3 s@3 r@8 s@8");
    auto lines = stopLogAndReadLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Repository::loading, symbol already in the repository : c"), 1);
    EXPECT_NE(Repository::instance().find("c"), nullptr);
}

TEST_F(CompositeTest, EndDemoInANestedScriptEndsTheShow) {
    auto s = play("composite inner.txt\n0 100 0 1 0\n", "record x\n0 100 0 1 0\nendDemo\n");
    EXPECT_EQ(frame(*s, 1.0f), "x@1");
    EXPECT_TRUE(endOfDemo());
}

TEST_F(CompositeTest, MissingNestedScriptIsFatalWhenTheLineIsRead) {
    auto s = play("composite absent.txt\n0 100 0 1 0\n", "");
    try {
        s->run(1.0f);
        FAIL();
    } catch (const error& e) {
        EXPECT_STREQ(e.message(), "TextParser can not open file");
    }
}

}  // namespace
}  // namespace vz::test
