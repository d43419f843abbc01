#include <cstring>
#include <vector>

#include "script/Component.hpp"

namespace vz {

namespace {

struct Registered {
    const char* keyword;
    ComponentBuilder builder;
};

std::vector<Registered>& registry() {
    static std::vector<Registered> entries;
    return entries;
}

}  // namespace

ComponentRegistration::ComponentRegistration(const char* keyword, ComponentBuilder builder) {
    registry().push_back({keyword, builder});
}

ComponentBuilder findComponentBuilder(const char* keyword) {
    for (const Registered& entry : registry())
        if (std::strcmp(entry.keyword, keyword) == 0) return entry.builder;
    return nullptr;
}

}  // namespace vz
