#include "engine3d/procedural/MeshCopies.hpp"

#include "engine3d/Transform.hpp"
#include "engine3d/procedural/ProceduralView.hpp"
#include "engine3d/raster/FaceRenderers.hpp"

namespace vz {

void MeshCopies::begin(const EngineSettings& settings, Layer32bpp& target, Zbuffer& zbuffer, Meshe& mesh) {
    beginProceduralFrame(context_, settings, target);
    context_.target32 = target.pixels;
    context_.zbuffer = zbuffer.pixels;
    context_.zword = zbuffer.stamp;
    mesh_ = &mesh;
    position_ = mesh.position;
    scale_ = mesh.scale;
    inverseScale_ = mesh.inverseScale;
    rotation_ = mesh.rotation;
}

void MeshCopies::add(const Mat3& rotation, const Vec3& position, float scale) {
    mesh_->rotation = rotation;
    mesh_->position = position;
    mesh_->setUniformScale(scale);
    mesh_->lastTime = -1.0f;
    addMeshe(context_, *mesh_, 0);
}

void MeshCopies::draw() {
    sortFarToNear(context_);
    raster::drawZbuffer32(context_);
    mesh_->position = position_;
    mesh_->scale = scale_;
    mesh_->inverseScale = inverseScale_;
    mesh_->rotation = rotation_;
    mesh_->lastTime = -1.0f;
}

float scaleToFit(const Meshe& mesh, float size) { return mesh.boundRadius > 0 ? size / mesh.boundRadius : 1.0f; }

}  // namespace vz
