#include "script/ResourceKinds.hpp"

#include <array>
#include <cstring>

namespace vz {

namespace {

constexpr int kindCount = 19;

// The order in which a declaration's kind keyword is tried.
constexpr std::array<const char*, kindCount> kindOrder = {
    "LayerRle",        "Layer8bpp",     "Layer32bpp",  "OffsetsTable", "Zbuffer",  "Palette",        "Color",
    "Meshe",           "MesheMaterial", "Material",    "Scene",        "SceneMax", "KeytrackSprite", "KeytrackVector3",
    "KeytrackVector2", "KeytrackFloat", "KeytrackInt", "Text",         "Rawdata"};

// Filled by the registrations during static initialisation, in kindOrder's order.
std::array<ResourceKind, kindCount>& kinds() {
    static std::array<ResourceKind, kindCount> table = [] {
        std::array<ResourceKind, kindCount> made{};
        for (int i = 0; i < kindCount; ++i) made[i] = {kindOrder[i], nullptr};
        return made;
    }();
    return table;
}

}  // namespace

const ResourceKind* findResourceKind(const char* keyword) {
    for (const ResourceKind& kind : kinds())
        if (std::strcmp(kind.keyword, keyword) == 0) return &kind;
    return nullptr;
}

ResourceKindRegistration::ResourceKindRegistration(const char* keyword, ResourceBuilder builder) {
    for (ResourceKind& kind : kinds())
        if (std::strcmp(kind.keyword, keyword) == 0) kind.build = builder;
}

}  // namespace vz
