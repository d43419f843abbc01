#pragma once
// The mesh loaders chosen by file name: the text after the first "." of the name (not
// the last one), compared exactly. "scene.old.asc" is thus no "asc" file.
#include <memory>
#include <string>

#include "engine3d/Meshe.hpp"

namespace vz {

class Material;
class Repository;

class GenModels {
public:
    // "asc" or "3d"; every face takes `material`. Otherwise a fatal error
    // "GenModels::loadModel : unknow file extention".
    static std::unique_ptr<Meshe> loadModel(const std::string& fileName, const std::shared_ptr<Material>& material);
    // "asc" only, whose faces name their own materials. Otherwise a fatal error
    // "GenModels::loadModelMaterial : unknow file extention".
    static std::unique_ptr<Meshe> loadModelMaterial(const std::string& fileName, Repository& repository);
    // The text after the first ".", empty when there is none.
    static std::string extensionOf(const std::string& fileName);
};

}  // namespace vz
