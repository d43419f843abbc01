#pragma once
// One sprite per vertex of the mesh, centred on its projection and added to the target
// (black sprite pixels leave it as it is). The sprite's radius in pixels is
//   baseRadius + scaleRadius x 256 / z
// for a vertex at camera distance z: baseRadius + scaleRadius at the default distance
// 256, growing as the vertex comes nearer. The sprite is scaled so that its width is
// twice that radius (its height in proportion). Vertices behind the near plane, and
// radii that are not positive, draw nothing.
#include "core/Layer.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/RenderContext.hpp"

namespace vz {

// The radius in pixels of a dot at camera distance z.
double dotRadius(double baseRadius, double scaleRadius, double z);

void drawDots(const RenderContext& context, Layer32bpp& target, const Layer32bpp& sprite, float baseRadius,
              float scaleRadius);

}  // namespace vz
