#include "script/Sequencer.hpp"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"

namespace vz {

Sequencer::Sequencer(const std::string& scriptName, Show& show, const ExtraComponents* extra)
    : Sequencer(scriptName, show, extra, 0) {}

Sequencer::Sequencer(const std::string& scriptName, const Sequencer& parent)
    : Sequencer(scriptName, parent.show_, parent.extra_, parent.depth_ + 1) {
    // A checked show reads a nested script when its composite is made, since nothing runs.
    if (show_.check) checkAll();
}

Sequencer::Sequencer(const std::string& scriptName, Show& show, const ExtraComponents* extra, int depth)
    : scriptName_(scriptName), show_(show), extra_(extra), depth_(depth) {
    // A script that places itself, directly or through others, would nest without end
    // within a single frame.
    if (depth_ > maxNesting) fail(scriptName, "scripts nested more than " + std::to_string(maxNesting) + " deep");
    parser_.open(scriptName);
    factory_.registerAll();
    entries_.reserve(entryCapacity);
    active_.reserve(activeCapacity);
}

Sequencer::~Sequencer() {
    // Components go in timeline order; one placed by several entries goes once.
    for (Entry& entry : entries_)
        if (entry.component) destroy(entry.component);
    entries_.clear();
    // Components that no entry ever placed.
    components_.clear();
    parser_.close();
}

void Sequencer::run(float t) {
    read(t);
    rebuildActiveList(t);
    for (int index : active_) {
        const Entry& entry = entries_[index];
        entry.component->run((t - entry.begin) * entry.speed + entry.offset);
    }
    releaseEnded(t);
}

void Sequencer::read(float t) {
    if (t <= waitTime_) return;
    // Entry lines refer to the component created last in this same call.
    Component* current = nullptr;
    try {
        readLines(t, current);
    } catch (error& e) {
        e.locate(parser_.location());
        throw;
    }
    releaseIfUnplaced(current);
}

Sequencer::LineStart Sequencer::readLineStart(std::string& keyword) {
    const char first = parser_.peekChar();
    if (first >= '0' && first <= '9') return LineStart::entry;
    if (first == '%') {
        skipBlockComment();
        return LineStart::done;
    }
    keyword = parser_.getTokenCopy();
    if (keyword == "add") {
        show_.repository.load(parser_);
        return LineStart::done;
    }
    if (keyword == "sub") {
        show_.repository.sub(parser_.getTokenCopy());
        return LineStart::done;
    }
    return LineStart::keyword;
}

void Sequencer::readLines(float t, Component*& current) {
    std::string keyword;
    while (parser_.nextLine()) {
        const LineStart start = readLineStart(keyword);
        if (start == LineStart::entry) readEntry(current);
        if (start != LineStart::keyword) continue;
        if (keyword == "wait") {
            waitTime_ = readTime("wait");
            if (t <= waitTime_) return;  // a wait already past does not stop reading
        } else if (keyword == "waitFrame") {
            return;
        } else if (keyword == "endDemo") {
            show_.ended = true;
            return;
        } else {
            if (!current) logout() << lend << scriptName_ << ":" << lend;
            releaseIfUnplaced(current);
            current = createComponent(keyword);
        }
    }
}

void Sequencer::releaseIfUnplaced(Component* component) {
    // Entry lines can only follow their component within one reading: a component that
    // got none by the time another one is made or the reading stops will never run, and
    // the resources it took are let go now, so that "sub" frees them.
    if (component && component->useCount == 0) destroy(component);
}

float Sequencer::readTime(const char* what) {
    const float value = parser_.getFloat();
    if (!std::isfinite(value)) {
        std::ostringstream text;
        text << what << " " << value << " is not a finite time";
        fail(parser_.location(), text.str());
    }
    return value;
}

void Sequencer::readEntry(Component* current) {
    const std::string where = parser_.location();
    if (!current) fail(where, "timeline entry without a component");
    if (entryCount() >= entryCapacity) fail(where, "more than " + std::to_string(entryCapacity) + " timeline entries");

    Entry entry;
    entry.component = current;
    entry.begin = readTime("begin");
    entry.end = readTime("end");
    entry.offset = readTime("offset");
    entry.speed = readTime("speed");
    entry.order = parser_.getInt();
    ++current->useCount;
    logout() << entryCount() << " - Key [" << current->getName() << "] - begin [" << entry.begin << "] - end ["
             << entry.end << "] - offset [" << entry.offset << "] - speed [" << entry.speed << "] - order ["
             << entry.order << "]" << lend;
    entries_.push_back(entry);
}

Component* Sequencer::createComponent(const std::string& keyword) {
    std::unique_ptr<Component> component;
    ComponentContext context(keyword, parser_, show_, *this);
    if (ComponentMaker* maker = factory_.find(keyword)) {
        component = maker->create(context);
    } else if (extra_) {
        for (const ExtraComponent& candidate : *extra_) {
            if (candidate.keyword != keyword) continue;
            component = candidate.builder(context);
            break;
        }
    }
    if (!component) {
        fatal("unknow Component : " + scriptName_ + "::" + keyword, "unknow Component");
    }
    component->keepAlive(context.takeBorrowed());
    components_.push_back(std::move(component));
    return components_.back().get();
}

void Sequencer::skipBlockComment() {
    // The opening line is skipped whole; the block ends with the next line whose first
    // token is exactly "%" (or with the script).
    while (parser_.nextLine())
        if (std::string(parser_.getToken()) == "%") return;
}

void Sequencer::rebuildActiveList(float t) {
    active_.clear();
    for (int index = 0; index < entryCount(); ++index) {
        const Entry& entry = entries_[index];
        if (!entry.component || entry.begin > t) continue;
        if (!(entry.end > t || entry.end == -1.0f)) continue;
        if (static_cast<int>(active_.size()) >= activeCapacity) {
            std::ostringstream what;
            what << "more than " << activeCapacity << " timeline entries active at time " << t;
            fail(scriptName_, what.str());
        }
        // Stable insertion by order: an equal order stays behind the earlier entries.
        auto place = std::upper_bound(active_.begin(), active_.end(), entry.order,
                                      [this](int order, int other) { return order < entries_[other].order; });
        active_.insert(place, index);
    }
}

void Sequencer::releaseEnded(float t) {
    // A one-shot entry (end -1.0) is released in the frame in which it ran, the first
    // one whose time has reached its begin; not before, or an entry read ahead of its
    // begin would never run.
    for (Entry& entry : entries_) {
        if (!entry.component || entry.end > t) continue;
        if (entry.end == -1.0f && entry.begin > t) continue;
        if (--entry.component->useCount == 0) destroy(entry.component);
        entry.component = nullptr;
    }
}

void Sequencer::destroy(Component* component) {
    auto owned = std::find_if(components_.begin(), components_.end(),
                              [component](const std::unique_ptr<Component>& held) { return held.get() == component; });
    if (owned != components_.end()) components_.erase(owned);
}

void Sequencer::fail(const std::string& where, const std::string& what) const {
    // The log names the place; standard error shows it in front of the message.
    try {
        fatal("Sequencer : " + where + " : " + what, "Sequencer : " + what);
    } catch (error& e) {
        e.locate(where);
        throw;
    }
}

}  // namespace vz
