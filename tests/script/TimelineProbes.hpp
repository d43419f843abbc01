#pragma once
// Helpers of the timeline tests. The probe component "record LABEL" appends
// "LABEL@localTime" to a journal at every run and "~LABEL" when it is destroyed.
#include <sstream>

#include "script/ComponentContext.hpp"
#include "script/RandomSeed.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "tests/script/ScriptTestSupport.hpp"

namespace vz::test {

inline std::vector<std::string>& journal() {
    static std::vector<std::string> lines;
    return lines;
}

class Recorder : public Component {
public:
    Recorder(ComponentContext& in) : label_(in.word()) { setName("Recorder"); }
    ~Recorder() override { journal().push_back("~" + label_); }
    void run(float localTime) override {
        std::ostringstream line;
        line << label_ << "@" << localTime;
        journal().push_back(line.str());
    }

private:
    std::string label_;
};

// Runs one frame and returns what it wrote to the journal, blank-separated.
inline std::string frame(Sequencer& sequencer, float t) {
    journal().clear();
    sequencer.run(t);
    std::string text;
    for (const std::string& line : journal()) text += (text.empty() ? "" : " ") + line;
    journal().clear();
    return text;
}

// A scratch working directory, a fresh show, seeds and journal for every test.
class TimelineTest : public ::testing::Test {
protected:
    TimelineTest() { resetState(); }
    ~TimelineTest() override { resetState(); }

    // A sequencer knowing the probes ("nullProbe" builds nothing) on a main.txt holding `script`.
    std::unique_ptr<Sequencer> play(const std::string& script) {
        static const ExtraComponents probes{
            {"record", &buildComponent<Recorder>},
            {"nullProbe", [](ComponentContext&) -> std::unique_ptr<Component> { return nullptr; }}};
        writeFile("main.txt", script);
        return std::make_unique<Sequencer>("main.txt", show, &probes);
    }

private:
    static void resetState() {
        resetRandomSeeds();
        journal().clear();
    }
    ScratchDir dir_;

protected:
    Show show;  // what the scripts declare, and whether one ended the demo
};

}  // namespace vz::test
