#include "engine3d/raster/FaceRenderers.hpp"

#include "script/Material.hpp"

namespace vz::raster {

namespace {

constexpr int zModePainter = 3;
constexpr int zModeTestOnly = 0;
constexpr int zModeNoDepth = 1;

int zModeOf(const VisibleFace& face) { return face.material ? face.material->zMode : zModePainter; }
bool solid(const VisibleFace& face) { return !face.material || face.material->solid; }

void drawZbufferFaces(RenderContext& c, bool flatPrepass) {
    c.deferred.clear();
    for (int i = static_cast<int>(c.faces.size()) - 1; i >= 0; --i) {
        const VisibleFace& face = c.faces[static_cast<std::size_t>(i)];
        if (solid(face))
            fillFace(c, face, kindFor32(face.materialId), zModeOf(face));
        else
            c.deferred.push_back(i);
    }
    for (const int i : c.deferred) {
        const VisibleFace& face = c.faces[static_cast<std::size_t>(i)];
        if (flatPrepass) fillFace(c, face, FillerKind::flat32, zModeNoDepth);
        const bool eightBitKind = face.materialId == 7 || face.materialId == 8;
        fillFace(c, face, eightBitKind ? FillerKind::flat32 : kindFor32(face.materialId), zModeTestOnly);
    }
}

}  // namespace

void drawPainter32(RenderContext& c) {
    for (const VisibleFace& face : c.faces) fillFace(c, face, kindFor32(face.materialId), zModePainter);
}

void drawZbuffer32(RenderContext& c) { drawZbufferFaces(c, false); }

void drawZbufferPrepass32(RenderContext& c) { drawZbufferFaces(c, true); }

void drawPainter8(RenderContext& c) {
    for (const VisibleFace& face : c.faces) fillFace(c, face, kindFor8(face.materialId), zModePainter);
}

void drawZbuffer8(RenderContext& c) {
    for (auto face = c.faces.rbegin(); face != c.faces.rend(); ++face)
        fillFace(c, *face, kindFor8(face->materialId), zModeOf(*face));
}

void drawSingleKind32(RenderContext& c, FillerKind kind) {
    for (const VisibleFace& face : c.faces) fillFace(c, face, kind, zModeOf(face));
}

}  // namespace vz::raster
