#pragma once
// The keyword table of one sequencer: keyword -> maker, filled with every catalogue
// keyword in the fixed order, and the listings of that table for script authors.
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "script/Component.hpp"
#include "script/ComponentCatalog.hpp"

namespace vz {

class SequencerFactory {
public:
    static constexpr int capacity = 256;

    // Appends keyword and maker (no duplicate check: the first match wins on lookup).
    void registerMaker(const std::string& keyword, std::unique_ptr<ComponentMaker> maker);
    // One catalogue-backed maker per catalogue entry, in catalogue order.
    void registerAll();

    ComponentMaker* find(const std::string& keyword) const;  // null when not registered
    int count() const { return static_cast<int>(slots_.size()); }
    const std::string& keyword(int index) const { return slots_[index].keyword; }
    const ComponentMaker& maker(int index) const { return *slots_[index].maker; }

    // The listing the player writes to its log after registration.
    void writeList(std::ostream& os) const;

private:
    struct Slot {
        std::string keyword;
        std::unique_ptr<ComponentMaker> maker;
    };
    std::vector<Slot> slots_;
};

// The maker of one catalogue keyword: it builds with whatever builder the keyword's
// family registered (VZ_COMPONENT), and returns null while no family builds it yet.
class CatalogMaker : public ComponentMaker {
public:
    explicit CatalogMaker(const CatalogEntry& entry) : entry_(entry) {}
    const char* getName() const override { return entry_.className; }
    const char* getDescription() const override { return entry_.description; }
    const char* getSyntax() const override { return entry_.syntax; }
    std::unique_ptr<Component> create(ComponentContext& context) override;

private:
    const CatalogEntry& entry_;
};

// The component that does nothing. It is not registered: no script can name it.
class Nothing : public Component {
public:
    void run(float) override {}
};

class NothingMaker : public ComponentMaker {
public:
    const char* getName() const override { return "Nothing"; }
    const char* getDescription() const override { return "This Component does nothing"; }
    const char* getSyntax() const override { return "No parameter"; }
    std::unique_ptr<Component> create(ComponentContext&) override { return std::make_unique<Nothing>(); }
};

// The full keyword listing, as the log shows it, for --list-components.
void writeComponentList(std::ostream& os);
// The script reference page (docs/components.md): every keyword with its class,
// parameters and description, whether this build can create it, and its picture when
// `picturesDir` holds KEYWORD.png (linked as pictures/components/KEYWORD.png).
void writeComponentReferenceMarkdown(std::ostream& os, const std::string& picturesDir = "");

}  // namespace vz
