#pragma once
// The resource kinds a script can declare with "add" name kind parameters...: each
// keyword with the builder that reads the kind's parameters from the rest of the line.
#include <memory>
#include <string>

#include "script/Resource.hpp"
#include "shell/error.hpp"

namespace vz {

class TextParser;

using ResourceBuilder = std::unique_ptr<Resource> (*)(TextParser& parser);

struct ResourceKind {
    const char* keyword;
    ResourceBuilder build;
};

// The kind declared by `keyword` (exact, case-sensitive), or null. Kinds are tried in a
// fixed order: "LayerRle", "Layer8bpp", "Layer32bpp", "OffsetsTable", "Zbuffer",
// "Palette", "Color", "Meshe", "MesheMaterial", "Material", "Scene", "SceneMax",
// "KeytrackSprite", "KeytrackVector3", "KeytrackVector2", "KeytrackFloat",
// "KeytrackInt", "Text", "Rawdata".
const ResourceKind* findResourceKind(const char* keyword);

// A picture loader's result, checked once for every picture kind: a loader that hands
// back nothing is a fatal error naming the file, never a null resource.
template <class T>
std::unique_ptr<T> requirePicture(std::unique_ptr<T> picture, const std::string& fileName) {
    if (!picture) throw error("ImageLoader : nothing was loaded from " + fileName);
    return picture;
}

}  // namespace vz
