#include "script/composites/Composite.hpp"

#include "tests/script/TimelineProbes.hpp"

namespace vz::test {
namespace {

class CompositeTest : public TimelineTest {
protected:
    std::unique_ptr<Sequencer> play(const std::string& main, const std::string& inner = "record x\n0 100 0 1 0\n") {
        writeFile("inner.txt", inner);
        return TimelineTest::play(main);
    }
};

TEST_F(CompositeTest, NestedScriptRunsOnTheCompositeLocalTime) {
    auto s = play("composite inner.txt\n2 10 1 2 0\n", "record x\n0 100 0 1 0\nwait 5\nrecord y\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 2.0f), "x@1");
    EXPECT_EQ(frame(*s, 4.0f), "x@5");  // the nested wait 5 holds at local time 5
    EXPECT_EQ(frame(*s, 4.5f), "x@6 y@6");
    EXPECT_EQ(frame(*s, 10.0f), "~x ~y");  // the composite ends with its nested components
}

TEST_F(CompositeTest, FrameDependentCompositeRunsOnlyAfterMoreThanOneInterval) {
    auto s = play("frameDependentComposite inner.txt 4\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 0.5f), "x@0.5");
    EXPECT_EQ(frame(*s, 0.75f), "");  // exactly one interval (0.25) later
    EXPECT_EQ(frame(*s, 0.765625f), "x@0.765625");
    // The first run needs a local time above -1 + interval; 0 fps never runs.
    auto slow = play("frameDependentComposite inner.txt 0.5\n0 100 -1.5 1 0\n");
    EXPECT_EQ(frame(*slow, 2.5f), "");
    EXPECT_EQ(frame(*slow, 2.75f), "x@1.25");
    EXPECT_EQ(frame(*play("frameDependentComposite inner.txt 0\n0 100 0 1 0\n"), 99.0f), "");
}

TEST_F(CompositeTest, TwoCompositesOnOneFileKeepOwnTimelinesButShareTheRepository) {
    startLog();
    auto s = play("composite inner.txt\n0 100 0 1 0\ncomposite inner.txt\n0 100 5 1 1\n",
                  "add c Color 0 1 2 3\nrecord r\n0 100 0 1 0\nwait 2\nrecord s\n0 100 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "r@1 r@6 s@6");
    EXPECT_EQ(frame(*s, 3.0f), "r@3 s@3 r@8 s@8");
    auto lines = stopLogAndReadLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Repository::loading, symbol already in the repository : c"), 1);
}

TEST_F(CompositeTest, EndDemoInANestedScriptEndsTheShow) {
    EXPECT_EQ(frame(*play("composite inner.txt\n0 100 0 1 0\n", "record x\n0 100 0 1 0\nendDemo\n"), 1.0f), "x@1");
    EXPECT_TRUE(show.ended);
}

TEST_F(CompositeTest, BadNestedScriptsAreFatal) {
    auto selfNesting = play("composite inner.txt\n0 100 0 1 0\n", "composite inner.txt\n0 100 0 1 0\n");
    EXPECT_EQ(errorOf([&] { selfNesting->run(1.0f); }), "Sequencer : inner.txt : scripts nested more than 16 deep");
    auto missing = play("composite absent.txt\n0 100 0 1 0\n");
    EXPECT_EQ(errorOf([&] { missing->run(1.0f); }), "TextParser can not open file");
}

}  // namespace
}  // namespace vz::test
