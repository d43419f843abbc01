#pragma once
// Copies of one mesh, each at its own placement, gathered through the front end and drawn
// at once by the z-buffer renderer into a target and its depth buffer. The mesh's own
// placement is put back when the frame is drawn, as a borrowed mesh should be.
#include "core/Layer.hpp"
#include "core/Zbuffer.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"

namespace vz {

class MeshCopies {
public:
    // Starts a frame of copies of `mesh` on the target, the depths stamped with the
    // z-buffer's present stamp.
    void begin(const EngineSettings& settings, Layer32bpp& target, Zbuffer& zbuffer, Meshe& mesh);
    // One copy: object space scaled by `scale`, turned, then moved to `position` (the
    // default camera's space: z is the distance before it).
    void add(const Mat3& rotation, const Vec3& position, float scale);
    // Draws every copy, nearest faces first.
    void draw();

    const RenderContext& context() const { return context_; }

private:
    RenderContext context_;
    Meshe* mesh_ = nullptr;
    // The mesh's own placement, put back after the frame.
    Vec3 position_, scale_, inverseScale_;
    Mat3 rotation_;
};

// The scale that makes a mesh of this bounding radius `size` units across its half size:
// 1 for a mesh with no extent.
float scaleToFit(const Meshe& mesh, float size);

}  // namespace vz
