#include "engine3d/modifiers/Deformations.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine3d/MeshPreparation.hpp"

namespace vz {

namespace {

void moveTo(Vertex& v, const Vec3& p) {
    v.x = p.x;
    v.y = p.y;
    v.z = p.z;
}

}  // namespace

std::vector<Vec3> positionsOf(const Meshe& mesh) {
    std::vector<Vec3> positions;
    positions.reserve(mesh.vertices.size());
    for (const Vertex& v : mesh.vertices) positions.push_back({v.x, v.y, v.z});
    return positions;
}

void setPositions(Meshe& mesh, const std::vector<Vec3>& positions) {
    const std::size_t n = std::min(positions.size(), mesh.vertices.size());
    for (std::size_t i = 0; i < n; ++i) {
        moveTo(mesh.vertices[i], positions[i]);
    }
}

void refreshNormals(Meshe& mesh) {
    computeFaceNormals(mesh);
    computeVertexNormals(mesh);
}

void morphPositions(Meshe& target, const Meshe& a, const Meshe& b, float f) {
    const std::size_t n = std::min({target.vertices.size(), a.vertices.size(), b.vertices.size()});
    for (std::size_t i = 0; i < n; ++i) {
        const Vertex &from = a.vertices[i], &to = b.vertices[i];
        moveTo(target.vertices[i],
               {from.x + (to.x - from.x) * f, from.y + (to.y - from.y) * f, from.z + (to.z - from.z) * f});
    }
}

PoseShape shapeOf(const std::vector<Vec3>& pose) {
    PoseShape shape;
    if (pose.empty()) return shape;
    Vec3 low = pose[0], high = pose[0];
    for (const Vec3& p : pose) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    shape.centre = (low + high) * 0.5f;
    double sum = 0;
    for (const Vec3& p : pose) {
        const Vec3 d = p - shape.centre;
        sum += std::sqrt(dot(d, d));
    }
    shape.meanRadius = static_cast<float>(sum / static_cast<double>(pose.size()));
    return shape;
}

void blobPositions(Meshe& mesh, const std::vector<Vec3>& pose, const PoseShape& shape, float amplitude, float frequency,
                   float t) {
    const float wavesPerUnit = shape.meanRadius > 0 ? 2 * std::numbers::pi_v<float> * frequency / shape.meanRadius : 0;
    // Three paces that never line up, so the drop does not pulse as a whole.
    const float phaseX = 2.1f * t, phaseY = 1.7f * t, phaseZ = 1.3f * t;
    const std::size_t n = std::min(pose.size(), mesh.vertices.size());
    for (std::size_t i = 0; i < n; ++i) {
        const Vec3 d = pose[i] - shape.centre;
        const float wave = (std::sin(d.x * wavesPerUnit + phaseX) + std::sin(d.y * wavesPerUnit + phaseY) +
                            std::sin(d.z * wavesPerUnit + phaseZ)) /
                           3;
        moveTo(mesh.vertices[i], shape.centre + d * (1 + amplitude * wave));
    }
}

void spherifyPositions(Meshe& mesh, const std::vector<Vec3>& pose, const PoseShape& shape, float f) {
    f = std::clamp(f, 0.0f, 1.0f);
    const std::size_t n = std::min(pose.size(), mesh.vertices.size());
    for (std::size_t i = 0; i < n; ++i) {
        const Vec3 onSphere = shape.centre + normalized(pose[i] - shape.centre) * shape.meanRadius;
        moveTo(mesh.vertices[i], pose[i] + (onSphere - pose[i]) * f);
    }
}

HeightDelay::HeightDelay(const std::vector<Vec3>& pose) : rotations_(levels) {
    float low = 0, high = 0;
    if (!pose.empty()) {
        const auto [lowest, highest] =
            std::minmax_element(pose.begin(), pose.end(), [](const Vec3& a, const Vec3& b) { return a.y < b.y; });
        low = lowest->y;
        high = highest->y;
    }
    const float bandsPerUnit = high > low ? (levels - 1) / (high - low) : 0;
    bands_.reserve(pose.size());
    for (const Vec3& p : pose)
        bands_.push_back(std::clamp(static_cast<int>(std::lround((p.y - low) * bandsPerUnit)), 0, levels - 1));
}

void HeightDelay::turn(Meshe& mesh, const std::vector<Vec3>& pose) const {
    const std::size_t n = std::min({pose.size(), mesh.vertices.size(), bands_.size()});
    for (std::size_t i = 0; i < n; ++i) {
        moveTo(mesh.vertices[i], rotations_[static_cast<std::size_t>(bands_[i])] * pose[i]);
    }
}

}  // namespace vz
