// The sequencer's reading for --check: every line of the script, no clock.
#include "core/error.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"

namespace vz {

void Sequencer::checkAll() {
    ScriptCheck& check = *show_.check;
    Component* current = nullptr;
    // Entry lines of a component that could not be made are not errors of their own.
    bool componentFailed = false;
    std::string keyword;
    for (;;) {
        try {
            if (!parser_.nextLine()) break;
            const LineStart start = readLineStart(keyword);
            if (start == LineStart::entry && !componentFailed) {
                readEntry(current);
                // Nothing will run: the component goes when the next one is made.
                --current->useCount;
                entries_.back().component = nullptr;
            }
            if (start != LineStart::keyword) continue;
            if (keyword == "wait") {
                readTime("wait");
            } else if (keyword == "waitFrame") {
                // Reading stops here for a frame, so entry lines can no longer follow.
                releaseIfUnplaced(current);
                current = nullptr;
            } else if (keyword != "endDemo") {
                releaseIfUnplaced(current);
                current = nullptr;
                componentFailed = true;
                current = createComponent(keyword);
                componentFailed = false;
            }
        } catch (error& e) {
            e.locate(parser_.location());
            check.errors.push_back(e);
        }
    }
    releaseIfUnplaced(current);
}

}  // namespace vz
