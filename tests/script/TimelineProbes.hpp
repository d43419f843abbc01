#pragma once
// Helpers of the timeline tests. The probe component "record LABEL" appends
// "LABEL@localTime" to a journal at every run and "~LABEL" when it is destroyed.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "script/RandomSeed.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "tests/script/ScriptTestSupport.hpp"

namespace vz::test {

inline std::vector<std::string>& journal() {
    static std::vector<std::string> lines;
    return lines;
}

class Recorder : public Component {
public:
    Recorder(Sequencer&, TextParser& parser) : label_(parser.getTokenCopy()) { setName("Recorder"); }
    ~Recorder() override { journal().push_back("~" + label_); }
    void run(float localTime) override {
        std::ostringstream line;
        line << label_ << "@" << localTime;
        journal().push_back(line.str());
    }

private:
    std::string label_;
};

inline const ExtraComponents& probes() {
    static const ExtraComponents list{
        {"record", &buildComponent<Recorder>},
        {"nullProbe", [](Sequencer&, TextParser&) -> std::unique_ptr<Component> { return nullptr; }},
    };
    return list;
}

// Runs one frame and returns what it wrote to the journal, blank-separated.
inline std::string frame(Sequencer& sequencer, float t) {
    journal().clear();
    sequencer.run(t);
    std::string text;
    for (const std::string& line : journal()) text += (text.empty() ? "" : " ") + line;
    journal().clear();
    return text;
}

// A scratch working directory and a fresh program state (repository, end-of-demo flag,
// seeds, journal) for every test.
class TimelineTest : public ::testing::Test {
protected:
    TimelineTest() { resetState(); }
    ~TimelineTest() override { resetState(); }

    // A sequencer, knowing the probes, on a main.txt holding `script`.
    std::unique_ptr<Sequencer> play(const std::string& script) {
        writeFile("main.txt", script);
        return std::make_unique<Sequencer>("main.txt", &probes());
    }

private:
    static void resetState() {
        Repository::instance().clear();
        endOfDemo() = false;
        resetRandomSeeds();
        journal().clear();
    }
    ScratchDir dir_;
};

}  // namespace vz::test
