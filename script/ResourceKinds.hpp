#pragma once
// The resource kinds a script can declare with "add name kind parameters...". Each kind
// registers its builder with VZ_RESOURCE_KIND in the file that builds it, the way
// components register, so a subsystem adds its kinds without touching this folder. The
// order in which kinds are tried is fixed here, as data.
#include <memory>
#include <string>

#include "core/Resource.hpp"
#include "core/error.hpp"

namespace vz {

class Repository;
class TextParser;

// Reads the kind's parameters from the rest of the declaration line. The repository
// serves declarations that name other symbols ("sizeof screen", a material's layers).
using ResourceBuilder = std::unique_ptr<Resource> (*)(TextParser& parser, Repository& repository);

struct ResourceKind {
    const char* keyword;
    ResourceBuilder build;  // null while no subsystem of this build registers the kind
};

// The kind declared by `keyword` (exact, case-sensitive), or null when it is no kind.
// Kinds are tried in a fixed order: "LayerRle", "Layer8bpp", "Layer32bpp",
// "OffsetsTable", "Zbuffer", "Palette", "Color", "Meshe", "MesheMaterial", "Material",
// "Scene", "SceneMax", "KeytrackSprite", "KeytrackVector3", "KeytrackVector2",
// "KeytrackFloat", "KeytrackInt", "Text", "Rawdata".
const ResourceKind* findResourceKind(const char* keyword);

struct ResourceKindRegistration {
    ResourceKindRegistration(const char* keyword, ResourceBuilder builder);
};

// A picture loader's result, checked once for every picture kind: a loader that hands
// back nothing is a fatal error naming the file, never a null resource.
template <class T>
std::unique_ptr<T> requirePicture(std::unique_ptr<T> picture, const std::string& fileName) {
    if (!picture) throw error("ImageLoader : nothing was loaded from " + fileName);
    return picture;
}

}  // namespace vz

// In the file that builds a kind: VZ_RESOURCE_KIND("Zbuffer", buildZbuffer)
#define VZ_RESOURCE_KIND_CAT2(a, b) a##b
#define VZ_RESOURCE_KIND_CAT(a, b) VZ_RESOURCE_KIND_CAT2(a, b)
#define VZ_RESOURCE_KIND(keyword, builder)                                                                         \
    static const ::vz::ResourceKindRegistration VZ_RESOURCE_KIND_CAT(resourceKindRegistration_, __LINE__){keyword, \
                                                                                                          builder};
