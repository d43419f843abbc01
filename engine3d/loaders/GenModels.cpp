#include "engine3d/loaders/GenModels.hpp"

#include "core/error.hpp"
#include "engine3d/loaders/AscLoader.hpp"
#include "engine3d/loaders/ThreeDLoader.hpp"

namespace vz {

namespace {

[[noreturn]] void unknownExtension(const std::string& message, const std::string& fileName) {
    fatal(message + " : " + fileName, message);
}

}  // namespace

std::string GenModels::extensionOf(const std::string& fileName) {
    const auto dot = fileName.find('.');
    return dot == std::string::npos ? std::string() : fileName.substr(dot + 1);
}

std::unique_ptr<Meshe> GenModels::loadModel(const std::string& fileName, const std::shared_ptr<Material>& material) {
    const std::string extension = extensionOf(fileName);
    if (extension == "asc") return loadAsc(fileName, material);
    if (extension == "3d") return load3d(fileName, material);
    unknownExtension("GenModels::loadModel : unknow file extention", fileName);
}

std::unique_ptr<Meshe> GenModels::loadModelMaterial(const std::string& fileName, Repository& repository) {
    if (extensionOf(fileName) == "asc") return loadAscMaterial(fileName, repository);
    unknownExtension("GenModels::loadModelMaterial : unknow file extention", fileName);
}

}  // namespace vz
