#include "tests/script/TimelineProbes.hpp"

namespace vz::test {
namespace {

using SequencerTest = TimelineTest;

TEST_F(SequencerTest, EntriesRunInsideTheirSpanWithSpeedAndOffset) {
    auto s = play("record a\n2 5 0 1 0\nrecord b\n1 3 1 2 0\n");
    EXPECT_EQ(frame(*s, 1.0f), "b@1");
    EXPECT_EQ(frame(*s, 2.0f), "a@0 b@3");
    EXPECT_EQ(frame(*s, 3.0f), "a@1 ~b");  // b ends at 3: not run, released
    EXPECT_EQ(frame(*s, 4.5f), "a@2.5");
    EXPECT_EQ(frame(*s, 5.0f), "~a");
}

TEST_F(SequencerTest, OneShotEntriesAreReleasedInTheirFirstFrame) {
    auto s = play("wait 3\nrecord once\n3 -1 0.5 1 0\nwait 4\nrecord early\n9 -1 0 1 0\n");
    EXPECT_EQ(frame(*s, 3.0f), "");  // the wait holds up to and including 3
    EXPECT_EQ(frame(*s, 3.25f), "once@0.75 ~once");
    EXPECT_EQ(frame(*s, 5.0f), "~early");  // read before its begin: released unrun
    EXPECT_EQ(frame(*s, 9.0f), "");
}

TEST_F(SequencerTest, ActiveEntriesRunByOrderAndTiesKeepScriptOrder) {
    auto s = play("record a\n0 9 0 1 5\nrecord b\n0 9 0 1 1\nrecord c\n0 9 0 1 1\nrecord d\n0 9 0 1 -2\n");
    EXPECT_EQ(frame(*s, 1.0f), "d@1 b@1 c@1 a@1");
}

TEST_F(SequencerTest, ReadingStopsAtWaitsNotYetReachedAtWaitFrameAndAtEndDemo) {
    const std::string script =
        "record a\n0 9 0 1 0\nwait 4\nrecord b\n0 9 0 1 0\nwaitFrame\n"
        "% skipped\nrecord hidden\n0 9 0 1 0\n%\nrecord c\n0 9 0 1 0\nendDemo\nrecord d\n0 9 0 1 0\n";
    auto late = play(script);
    EXPECT_EQ(frame(*late, 6.0f), "a@6 b@6");
    EXPECT_EQ(frame(*late, 6.0f), "a@6 b@6 c@6");
    EXPECT_TRUE(show.ended);

    auto early = play(script);
    EXPECT_EQ(frame(*early, 0.0f), "");  // time 0 is not after the initial wait time 0
    EXPECT_EQ(frame(*early, 3.0f), "a@3");
    EXPECT_EQ(frame(*early, 4.0f), "a@4");
    EXPECT_EQ(frame(*early, 4.5f), "a@4.5 b@4.5");
}

TEST_F(SequencerTest, SharedComponentLivesUntilItsLastEntryEnds) {
    auto s = play("record s\n0 2 0 1 0\n1 4 10 1 0\n");
    EXPECT_EQ(frame(*s, 1.5f), "s@1.5 s@10.5");
    EXPECT_EQ(frame(*s, 3.0f), "s@12");
    EXPECT_EQ(frame(*s, 4.0f), "~s");
}

TEST_F(SequencerTest, DestructionReleasesEachPlacedComponentOnceThenTheUnplacedOnes) {
    auto s = play("record unplaced\nrecord twice\n0 9 0 1 0\n0 9 0 1 0\nrecord once\n0 9 0 1 0\n");
    frame(*s, 1.0f);
    s.reset();
    EXPECT_EQ(journal(), (std::vector<std::string>{"~twice", "~once", "~unplaced"}));
}

// The log's heading per reading call and line per entry are pinned by the sample demo's
// whole log; here, the fatal ones.
TEST_F(SequencerTest, UnknownKeywordsAndMalformedScriptsAreFatalAndNamed) {
    std::string tooMany = "record a\n", crowded = "record a\n";
    for (int i = 0; i <= Sequencer::entryCapacity; ++i) tooMany += "5 6 0 1 0\n";
    for (int i = 0; i <= Sequencer::activeCapacity; ++i) crowded += "0 9 0 1 0\n";
    const std::pair<std::string, std::string> cases[] = {
        {"Tunnel32bpp screen\n", "unknow Component"},
        {"nullProbe\n", "unknow Component"},
        {".5 9 0 1 0\n", "unknow Component"},
        {"record a\n0 9 0 1 0\nwaitFrame\n1 2 0 1 0\n", "Sequencer : main.txt:4 : timeline entry without a component"},
        {"record a\n0 9 0\n", "Fatal: Parser : there is no tokens lefts in the line"},
        {tooMany, "Sequencer : main.txt:258 : more than 256 timeline entries"},
        {crowded, "Sequencer : main.txt : more than 64 timeline entries active at time 1.5"}};
    auto fatalOf = [&](const std::string& script) {
        return errorOf([&] {
            auto s = play(script);
            s->run(1.5f);
            s->run(2.0f);
        });
    };
    startLog();
    for (const auto& [script, message] : cases) EXPECT_EQ(fatalOf(script), message) << script;
    auto lines = stopLogAndReadLines();
    EXPECT_TRUE(containsRun(lines, framed("unknow Component : main.txt::Tunnel32bpp")));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "unknow Component : main.txt::nullProbe"), 1);
    EXPECT_EQ(errorOf([&] { Sequencer missing("absent.txt", show); }), "TextParser can not open file");
}

}  // namespace
}  // namespace vz::test
