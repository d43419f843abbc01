#pragma once
// The rasterizer's entry points: one function per renderer kind, each drawing the faces
// of a RenderContext that the front end has filled (projected corners, faces far to
// near, viewport, target and z-buffer). The mesh and scene players call these and
// nothing else of engine3d/raster.
//
// What a renderer reads from the context: viewport (centre and scale of the projection,
// width, height and pitch of the target), target32 or target8, zbuffer (null: no depth
// test, whatever the materials ask), zword (the z-buffer's stamp, OR-ed into every depth
// written), lowQuality (set-up arithmetic in float instead of double), vertices and
// faces. `deferred` is the renderers' own scratch list. Nothing else is written: the
// materials are read only, and nothing is allocated once the lists have grown.
//
// Per face, the material id picks the filler (unknown ids paint the face's flatColor);
// the material's rendu picks the pixel operation and its zMode the depth treatment
// (0 tests, 2 tests and writes, anything else draws without the z-buffer). Faces whose
// corners run clockwise on the screen draw nothing; a double-faced material's face is
// drawn from whichever side it shows (its corners are walked the other way round when
// they run clockwise).
#include "engine3d/RenderContext.hpp"
#include "engine3d/raster/Fillers.hpp"

namespace vz::raster {

// First face to last, every face with the z-buffer left alone.
void drawPainter32(RenderContext& context);
// Last face to first (near to far): solid faces at once with their material's zMode,
// the others afterwards, first to last of their turn, tested without writing depth;
// those of ids 7 and 8 are painted flat.
void drawZbuffer32(RenderContext& context);
// The same, but each non-solid face is painted flat without the z-buffer before it is
// drawn normally.
void drawZbufferPrepass32(RenderContext& context);
// The 8-bit target: "texture8bpp" faces from map8bpp, every other face as "gouraud8bpp".
void drawPainter8(RenderContext& context);  // first to last, no depth test
void drawZbuffer8(RenderContext& context);  // last to first with the material's zMode
// Every face with one filler, first to last, whatever its material id (the multi-pass
// mesh players): depth as the material says when the context has a z-buffer.
void drawSingleKind32(RenderContext& context, FillerKind kind);

}  // namespace vz::raster
