#include "script/Sequencer.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "script/Repository.hpp"
#include "shell/error.hpp"
#include "support/TestSupport.hpp"
#include "tests/script/RecordingComponent.hpp"

namespace vz::test {
namespace {

class SequencerTest : public ::testing::Test {
protected:
    void SetUp() override {
        endOfDemo() = false;
        journal().clear();
    }
    void TearDown() override { endOfDemo() = false; }

    // A sequencer on main.txt holding `script`.
    std::unique_ptr<Sequencer> play(const std::string& script) {
        writeFile("main.txt", script);
        return std::make_unique<Sequencer>("main.txt", &probes());
    }

    std::string errorOf(const std::string& script, std::initializer_list<float> times) {
        try {
            auto sequencer = play(script);
            for (float t : times) sequencer->run(t);
        } catch (const error& e) {
            return e.message();
        }
        return "no error";
    }

    ScratchDir dir;
};

TEST_F(SequencerTest, EntriesRunInsideTheirSpanWithSpeedAndOffset) {
    auto s = play("record a\n2 5 0 1 0\nrecord b\n1 3 1 2 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "b@1");
    EXPECT_EQ(frame(*s, 2.0f), "a@0 b@3");
    EXPECT_EQ(frame(*s, 3.0f), "a@1 ~b");  // b ends at 3: not run, released
    EXPECT_EQ(frame(*s, 4.5f), "a@2.5");
    EXPECT_EQ(frame(*s, 5.0f), "~a");
    EXPECT_EQ(frame(*s, 6.0f), "");
}

TEST_F(SequencerTest, OneShotEntryRunsInItsFirstFrameOnly) {
    auto s = play("wait 3\nrecord once\n3 -1 0.5 1 0\n");
    EXPECT_EQ(frame(*s, 3.0f), "");  // the wait holds up to and including 3
    EXPECT_EQ(frame(*s, 3.25f), "once@0.75 ~once");
    EXPECT_EQ(frame(*s, 4.0f), "");
}

TEST_F(SequencerTest, OneShotEntryReadBeforeItsBeginIsReleasedUnrun) {
    auto s = play("record early\n3 -1 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "~early");
    EXPECT_EQ(frame(*s, 3.0f), "");
}

TEST_F(SequencerTest, ActiveEntriesRunByOrderAndTiesKeepScriptOrder) {
    auto s = play("record a\n0 9 0 1 5\nrecord b\n0 9 0 1 1\nrecord c\n0 9 0 1 1\nrecord d\n0 9 0 1 -2\n");
    EXPECT_EQ(frame(*s, 1.0f), "d@1 b@1 c@1 a@1");
}

TEST_F(SequencerTest, WaitStopsReadingOnlyWhenItsTimeHasNotCome) {
    const std::string script = "record a\n0 9 0 1 0\nwait 4\nrecord b\n0 9 0 1 0\n";
    auto late = play(script);
    EXPECT_EQ(frame(*late, 6.0f), "a@6 b@6");

    auto early = play(script);
    EXPECT_EQ(frame(*early, 3.0f), "a@3");
    EXPECT_EQ(frame(*early, 4.0f), "a@4");
    EXPECT_EQ(frame(*early, 4.5f), "a@4.5 b@4.5");
}

TEST_F(SequencerTest, TimeZeroReadsNothing) {
    auto s = play("record a\n0 9 0 1 0\n");
    EXPECT_EQ(frame(*s, 0.0f), "");
    EXPECT_EQ(s->entryCount(), 0);
    EXPECT_EQ(frame(*s, 0.01f), "a@0.01");
}

TEST_F(SequencerTest, ComponentSharedByTwoEntriesLivesUntilBothEnd) {
    auto s = play("record s\n0 2 0 1 0\n1 4 10 1 0\n");
    EXPECT_EQ(frame(*s, 1.5f), "s@1.5 s@10.5");
    EXPECT_EQ(frame(*s, 3.0f), "s@12");
    EXPECT_EQ(frame(*s, 4.0f), "~s");
}

TEST_F(SequencerTest, WaitFrameDefersTheRestToTheNextFrame) {
    auto s = play("record a\n0 9 0 1 0\nwaitFrame\nrecord b\n0 9 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "a@1");
    EXPECT_EQ(frame(*s, 1.0f), "a@1 b@1");
}

TEST_F(SequencerTest, BlockCommentsAndEndDemo) {
    auto s = play("% note\nrecord hidden\n0 9 0 1 0\n%\nrecord a\n0 9 0 1 0\nendDemo\nrecord b\n0 9 0 1 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "a@1");
    EXPECT_TRUE(endOfDemo());
    EXPECT_EQ(s->entryCount(), 1);
}

TEST_F(SequencerTest, DestructionReleasesEachPlacedComponentOnceAndKeepsUnplacedOnesUntilThen) {
    auto s = play("record unplaced\nrecord twice\n0 9 0 1 0\n0 9 0 1 0\nrecord once\n0 9 0 1 0\n");
    frame(*s, 1.0f);
    s.reset();
    EXPECT_EQ(journal(), (std::vector<std::string>{"~twice", "~once", "~unplaced"}));
}

TEST_F(SequencerTest, LogsAHeadingPerCallAndOneLinePerEntry) {
    startLog();
    auto s = play("record a\n2 -1 0.5 1 3\nwaitFrame\nrecord b\n0 1.25 0 2 -1\n");
    s->run(1.0f);
    s->run(1.0f);
    auto lines = stopLogAndReadLines();
    const std::vector<std::string> expected{
        "",
        "main.txt:",
        "0 - Key [Recorder] - begin [2] - end [-1] - offset [0.5] - speed [1] - order [3]",
        "",
        "main.txt:",
        "1 - Key [Recorder] - begin [0] - end [1.25] - offset [0] - speed [2] - order [-1]",
    };
    auto at = std::search(lines.begin(), lines.end(), expected.begin(), expected.end());
    EXPECT_NE(at, lines.end());
}

TEST_F(SequencerTest, UnknownKeywordIsFramedInTheLogAndFatal) {
    startLog();
    EXPECT_EQ(errorOf("Tunnel32bpp screen\n", {1.0f}), "unknow Component");
    EXPECT_EQ(errorOf("nullProbe\n", {1.0f}), "unknow Component");
    auto lines = stopLogAndReadLines();
    auto at = std::find(lines.begin(), lines.end(), "unknow Component : main.txt::Tunnel32bpp");
    ASSERT_NE(at, lines.end());
    EXPECT_EQ(*(at - 1), std::string(60, '-'));
    EXPECT_EQ(*(at + 1), std::string(60, '-'));
    EXPECT_NE(std::find(lines.begin(), lines.end(), "unknow Component : main.txt::nullProbe"), lines.end());
}

TEST_F(SequencerTest, MalformedScriptsAreFatalAndNamed) {
    EXPECT_EQ(errorOf("record a\n0 9 0 1 0\nwaitFrame\n1 2 0 1 0\n", {1.0f, 2.0f}),
              "Sequencer : main.txt:4 : timeline entry without a component");
    EXPECT_EQ(errorOf("record a\n0 9 0\n", {1.0f}), "Fatal: Parser : there is no tokens lefts in the line");
    EXPECT_EQ(errorOf(".5 9 0 1 0\n", {1.0f}), "unknow Component");

    std::string tooMany = "record a\n";
    for (int i = 0; i <= Sequencer::entryCapacity; ++i) tooMany += "5 6 0 1 0\n";
    EXPECT_EQ(errorOf(tooMany, {1.0f}), "Sequencer : main.txt:258 : more than 256 timeline entries");

    std::string crowded = "record a\n";
    for (int i = 0; i <= Sequencer::activeCapacity; ++i) crowded += "0 9 0 1 0\n";
    EXPECT_EQ(errorOf(crowded, {1.5f}), "Sequencer : main.txt : more than 64 timeline entries active at time 1.5");

    try {
        Sequencer missing("absent.txt");
        FAIL();
    } catch (const error& e) {
        EXPECT_STREQ(e.message(), "TextParser can not open file");
    }
}

}  // namespace
}  // namespace vz::test
