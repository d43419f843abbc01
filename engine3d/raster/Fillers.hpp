#pragma once
// Polygon fillers: the ways of painting a face. A filler turns one visible face into a
// screen polygon with the attributes its kind interpolates, picks the span operations
// once for the whole face and scan-converts it.
#include "engine3d/RenderContext.hpp"

namespace vz::raster {

// Attributes 1-4 of each kind (attribute 5 is always the corner's depth):
enum class FillerKind {
    texture32,         // id 0: u x 256, v x 256 into map32bpp (256 x 256, wrapping)
    textureAnysize32,  // id 1: u x width, v x height into map32bpp (held at its borders)
    flatPattern,       // id 5: map32bpp tiled on the screen, then the flat colour over it
    gouraud32,         // id 6: the corner's r, g, b (0-255)
    palette8Lit32,     // id 7: u x 256, v x 256 into map8bpp, third value x 256 as light
    dualTexture8,      // id 8: as id 7, the light read from lightmap8bpp at the third
                       //       and fourth values x 256
    flat32,            // any other id: the face's flatColor
    texture8,          // 8-bit target, id 2: u x 256, v x 256 into map8bpp
    gouraud8,          // 8-bit target, any other id: third value x 256 as the index
};

// The filler of a material id in the 32-bit and the 8-bit renderers.
FillerKind kindFor32(int materialId);
FillerKind kindFor8(int materialId);

// Paints one face with `kind`, its material's rendu and the depth treatment `zMode`
// (0 tests, 2 tests and writes, other values ignore the z-buffer). A kind whose layers
// the material lacks falls back to flat32 (gouraud8 on the 8-bit target).
void fillFace(const RenderContext& context, const VisibleFace& face, FillerKind kind, int zMode);

}  // namespace vz::raster
