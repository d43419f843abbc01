#pragma once
// The timeline: reads a script progressively, in step with the clock, creates the
// components its lines name, and runs every component whose time span holds the
// current time, in the order the script gives. "main.txt" drives the whole show;
// composites run further scripts through sequencers of their own.
#include <memory>
#include <string>
#include <vector>

#include "script/Component.hpp"
#include "script/SequencerFactory.hpp"
#include "script/TextParser.hpp"

namespace vz {

class Show;

// Keywords outside the catalogue that a sequencer accepts besides its factory's, looked
// up after them. The player passes none; tests place probe components with them. A
// nested sequencer is given the list of the sequencer whose script names it.
struct ExtraComponent {
    std::string keyword;
    ComponentBuilder builder;
};
using ExtraComponents = std::vector<ExtraComponent>;

class Sequencer {
public:
    static constexpr int entryCapacity = 256;  // entries over the script's whole life
    static constexpr int activeCapacity = 64;  // entries active at one time

    struct Entry {
        Component* component = nullptr;  // null once the entry has been released
        float begin = 0;
        float end = 0;  // exactly -1.0: a one-shot entry, run once then released
        float offset = 0;
        float speed = 1;
        int order = 0;
    };

    static constexpr int maxNesting = 16;  // composites within composites

    // Opens the script (a missing file is the parser's fatal error) and registers every
    // catalogue keyword. `show` and `extra` are borrowed and must outlive the sequencer.
    Sequencer(const std::string& scriptName, Show& show, const ExtraComponents* extra = nullptr);
    // A nested sequencer (composites): one level deeper than `parent`, in its show, with
    // its extras.
    Sequencer(const std::string& scriptName, const Sequencer& parent);
    ~Sequencer();
    Sequencer(const Sequencer&) = delete;
    Sequencer& operator=(const Sequencer&) = delete;

    // One frame at time t (seconds): read the script up to t, run the active entries in
    // order with their local times, release the entries that have ended.
    void run(float t);
    // Reads script lines until a wait whose time has not come, a "waitFrame", an
    // "endDemo" or the end of the script.
    void read(float t);
    // Reads the whole script without playing it (the show's check must be set): builds
    // every resource and component, passes over waits, and keeps each error with its
    // place in the check instead of stopping.
    void checkAll();

    const std::string& scriptName() const { return scriptName_; }
    SequencerFactory& factory() { return factory_; }
    int entryCount() const { return static_cast<int>(entries_.size()); }
    const Entry& entry(int index) const { return entries_[index]; }
    float waitTime() const { return waitTime_; }

private:
    Sequencer(const std::string& scriptName, Show& show, const ExtraComponents* extra, int depth);
    // How a line begins. Block comments and declarations ("add", "sub") are read the same
    // way when playing and when checking, and are done with here; an entry line is left
    // to the caller; otherwise `keyword` holds the line's first word.
    enum class LineStart { entry, done, keyword };
    LineStart readLineStart(std::string& keyword);
    void readLines(float t, Component*& current);
    void readEntry(Component* current);
    float readTime(const char* what);
    void releaseIfUnplaced(Component* component);
    Component* createComponent(const std::string& keyword);
    void skipBlockComment();
    void rebuildActiveList(float t);
    void releaseEnded(float t);
    void destroy(Component* component);
    [[noreturn]] void fail(const std::string& where, const std::string& what) const;

    SequencerFactory factory_;
    std::vector<Entry> entries_;
    std::vector<int> active_;  // indices into entries_, in running order
    TextParser parser_;
    float waitTime_ = 0;
    std::string scriptName_;
    Show& show_;
    const ExtraComponents* extra_;
    int depth_;  // 0 for the show's own script, 1 for a script it nests, ...
    // Every component created and not yet destroyed, entries or not.
    std::vector<std::unique_ptr<Component>> components_;
};

}  // namespace vz
