// The mesh resource kinds: "add name Meshe file material" and "add name MesheMaterial
// file". Both run the preparation passes once the file is read.
#include "engine3d/MeshPreparation.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"
#include "script/Repository.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

std::unique_ptr<Resource> buildMeshe(TextParser& parser, Repository& repository) {
    const std::string fileName = parser.getTokenCopy();
    auto mesh = GenModels::loadModel(fileName, sharedMaterial(repository, parser.getTokenCopy()));
    prepareMesh(*mesh);
    return mesh;
}

std::unique_ptr<Resource> buildMesheMaterial(TextParser& parser, Repository& repository) {
    auto mesh = GenModels::loadModelMaterial(parser.getTokenCopy(), repository);
    prepareMesh(*mesh);
    return mesh;
}

}  // namespace

VZ_RESOURCE_KIND("Meshe", buildMeshe)
VZ_RESOURCE_KIND("MesheMaterial", buildMesheMaterial)

}  // namespace vz
