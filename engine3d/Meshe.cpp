#include "engine3d/Meshe.hpp"

#include <algorithm>

#include "script/Material.hpp"

namespace vz {

Meshe::Meshe(int vertexCount, int faceCount, int edgeCapacity)
    : vertexCount(vertexCount),
      faceCount(faceCount),
      edgeCount(edgeCapacity),
      faces(static_cast<std::size_t>(faceCount)),
      vertices(static_cast<std::size_t>(vertexCount)),
      edges(static_cast<std::size_t>(edgeCapacity)) {}

void Meshe::setUniformScale(float s) {
    scale = {s, s, s};
    const float inverse = 1.0f / s;
    inverseScale = {inverse, inverse, inverse};
}

void Meshe::keep(const std::shared_ptr<Material>& material) {
    if (std::find(materials_.begin(), materials_.end(), material) == materials_.end()) materials_.push_back(material);
}

void Meshe::bind(Face& face, const std::shared_ptr<Material>& material) {
    keep(material);
    face.material = material.get();
    face.materialId = material->id;
    face.flatColor = material->color;
}

void Meshe::bindAll(const std::shared_ptr<Material>& material) {
    for (Face& face : faces) bind(face, material);
}

}  // namespace vz
