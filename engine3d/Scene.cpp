#include "engine3d/Scene.hpp"

#include "script/ResourceKinds.hpp"

namespace vz {

namespace {

// "add name Scene": an empty scene, filled by the scene components every frame.
std::unique_ptr<Resource> buildScene(TextParser&, Repository&) { return std::make_unique<Scene>(); }

}  // namespace

VZ_RESOURCE_KIND("Scene", buildScene)

}  // namespace vz
