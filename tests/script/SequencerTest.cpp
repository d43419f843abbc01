#include <algorithm>

#include "core/LayerManager.hpp"
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

TEST_F(SequencerTest, OneShotEntriesRunOnceInTheFirstFrameFromTheirBegin) {
    auto s = play("wait 3\nrecord once\n3 -1 0.5 1 0\nwait 4\nrecord early\n9 -1 0 1 0\n");
    EXPECT_EQ(frame(*s, 3.0f), "");  // the wait holds up to and including 3
    EXPECT_EQ(frame(*s, 3.25f), "once@0.75 ~once");
    EXPECT_EQ(frame(*s, 5.0f), "");  // read ahead of its begin: it waits for it
    EXPECT_EQ(frame(*s, 9.5f), "early@0.5 ~early");
    EXPECT_EQ(frame(*s, 10.0f), "");
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

TEST_F(SequencerTest, UnplacedComponentsGoWhenTheirReadingEndsAndPlacedOnesOnce) {
    auto s = play("record twice\n0 9 0 1 0\n0 9 0 1 0\nrecord unplaced\nrecord once\n0 9 0 1 0\nrecord last\n");
    EXPECT_EQ(frame(*s, 1.0f), "~unplaced ~last twice@1 twice@1 once@1");
    s.reset();
    EXPECT_EQ(journal(), (std::vector<std::string>{"~twice", "~once"}));
}

// A component that borrowed a layer and was never placed gives it back at the end of its
// reading: "sub" then frees the layer's slot for the next declaration.
TEST_F(SequencerTest, AnUnplacedComponentLetsSubFreeItsLayer) {
    LayerManager::install(std::make_unique<LayerManager>(0, 2, 64 * 4));  // one usable slot
    writeFile("main.txt", "add a Layer8bpp size 64 4\ncopyLayer8bpp a a\nwait 1\nsub a\nadd b Layer8bpp size 64 4\n");
    Sequencer s("main.txt", show);
    s.run(0.5f);
    EXPECT_EQ(errorOf([&] { s.run(1.5f); }), "no error");
    LayerManager::install(nullptr);
}

// The log's heading per reading call and line per entry are pinned by the sample demo's
// whole log; here, the fatal ones.
TEST_F(SequencerTest, UnknownKeywordsAndMalformedScriptsAreFatalAndNamed) {
    std::string tooMany = "record a\n", crowded = "record a\n";
    for (int i = 0; i <= Sequencer::entryCapacity; ++i) tooMany += "5 6 0 1 0\n";
    for (int i = 0; i <= Sequencer::activeCapacity; ++i) crowded += "0 9 0 1 0\n";
    const std::pair<std::string, std::string> cases[] = {
        {"Tunnel32bpp screen\n", "vzplayer: main.txt:1: unknow Component"},
        {"nullProbe\n", "vzplayer: main.txt:1: unknow Component"},
        {".5 9 0 1 0\n", "vzplayer: main.txt:1: unknow Component"},
        {"record a\n0 9 0 1 0\nwaitFrame\n1 2 0 1 0\n",
         "vzplayer: main.txt:4: Sequencer : timeline entry without a component"},
        {"record a\n0 9 0\n", "vzplayer: main.txt:2: Fatal: Parser : there is no tokens lefts in the line"},
        {"record a\n0 nan 0 1 0\n", "vzplayer: main.txt:2: Sequencer : end nan is not a finite time"},
        {"wait inf\n", "vzplayer: main.txt:1: Sequencer : wait inf is not a finite time"},
        {tooMany, "vzplayer: main.txt:258: Sequencer : more than 256 timeline entries"},
        {crowded, "vzplayer: main.txt: Sequencer : more than 64 timeline entries active at time 1.5"}};
    auto fatalOf = [&](const std::string& script) {
        return errorLineOf([&] {
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
    EXPECT_EQ(errorLineOf([&] { Sequencer missing("absent.txt", show); }),
              "vzplayer: TextParser can not open file (absent.txt: No such file or directory)");
}

}  // namespace
}  // namespace vz::test
