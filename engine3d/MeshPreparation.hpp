#pragma once
// What every mesh goes through once it is loaded, in this fixed order:
//   1. face normals: each face's unit normal in object space, on its front side;
//   2. vertex normals: the normalised sum of the normals of the faces using the vertex
//      (a vertex no face uses keeps a zero normal);
//   3. bounding sphere: centre of the vertices' bounding box, radius to the farthest vertex;
//   4. lighting defaults: each vertex's third and fourth mapping values start as its
//      first pair, and its colour as the colour of the first face that uses it, so the
//      light-mapped and gouraud kinds draw something sensible before any lighting runs.
#include "engine3d/Meshe.hpp"

namespace vz {

void computeFaceNormals(Meshe& mesh);
void computeVertexNormals(Meshe& mesh);
void computeBoundingSphere(Meshe& mesh);
void setLightingDefaults(Meshe& mesh);

// The four passes above, in their order.
void prepareMesh(Meshe& mesh);

}  // namespace vz
