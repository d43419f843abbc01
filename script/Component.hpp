#pragma once
// Everything that happens on the timeline is a Component, made from one script line by
// the maker registered under the line's keyword. Each effect family registers its own
// builders with VZ_COMPONENT in its own source file; the factory pairs them with the
// fixed keyword catalogue (names, French descriptions, syntaxes).
#include <memory>
#include <vector>

namespace vz {

class ComponentContext;
class Resource;

class Component {
public:
    virtual ~Component() = default;
    // The component's class name ("Tunnel32bpp"), the same text as its maker's name.
    virtual const char* getName() const { return name_; }
    virtual void run(float localTime) = 0;

    void setName(const char* className) { name_ = className; }
    // The resources the component acquired: they live at least as long as it does.
    void keepAlive(std::vector<std::shared_ptr<Resource>> resources) { borrowed_ = std::move(resources); }
    int useCount = 0;  // timeline entries placing this component

private:
    const char* name_ = "Nothing";
    // Destroyed after the derived class's members, which may still point into them.
    std::vector<std::shared_ptr<Resource>> borrowed_;
};

class ComponentMaker {
public:
    virtual ~ComponentMaker() = default;
    virtual const char* getName() const = 0;
    virtual const char* getDescription() const = 0;
    virtual const char* getSyntax() const = 0;
    // A new component built from the rest of the context's script line, or null.
    virtual std::unique_ptr<Component> create(ComponentContext& context) = 0;
};

using ComponentBuilder = std::unique_ptr<Component> (*)(ComponentContext&);

template <class T>
std::unique_ptr<Component> buildComponent(ComponentContext& context) {
    return std::make_unique<T>(context);
}

// The builder a family registered for a keyword, or null when none is built yet.
ComponentBuilder findComponentBuilder(const char* keyword);

struct ComponentRegistration {
    ComponentRegistration(const char* keyword, ComponentBuilder builder);
};

}  // namespace vz

// In a family's .cpp: VZ_COMPONENT("tunnel32bpp", Tunnel32bpp)
// The class needs a constructor (ComponentContext&).
#define VZ_COMPONENT_CAT2(a, b) a##b
#define VZ_COMPONENT_CAT(a, b) VZ_COMPONENT_CAT2(a, b)
#define VZ_COMPONENT(keyword, Class)                                                             \
    static const ::vz::ComponentRegistration VZ_COMPONENT_CAT(componentRegistration_, __LINE__){ \
        keyword, &::vz::buildComponent<Class>};
