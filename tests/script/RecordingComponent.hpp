#pragma once
// A probe component for timeline tests: "record LABEL" on a script line. Every run
// appends "LABEL@localTime" to a journal; destruction appends "~LABEL".
#include <sstream>
#include <string>
#include <vector>

#include "script/Sequencer.hpp"
#include "script/TextParser.hpp"

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

}  // namespace vz::test
