#pragma once
// The mesh's visible edges as one-pixel lines. An edge takes the palette entry of its
// nearness: index = 32768 / z, held within 0..255, z being the camera distance of the
// edge's middle. An object at the default distance 256 is drawn in entry 128; twice as
// near, entry 255; twice as far, entry 64. Each pixel goes through the rendu operator.
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"

namespace vz {

// The palette entry of an edge whose middle lies at camera distance z.
int wireframeColourIndex(double z);

// Needs the mesh's vertices in context.cameraSpace (the frame's projection puts them
// there). Lines are clipped to the near plane and the target.
void drawWireframe(const RenderContext& context, const Meshe& mesh, Layer32bpp& target, const Palette& palette,
                   int rendu);

}  // namespace vz
