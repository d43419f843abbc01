#pragma once
// Models made of lines: points in object space and the wires between them, each wire
// with a palette index. The procedural wireframes build one at construction and draw it
// every frame through the front end's segment clipping and projection.
#include <cstdint>
#include <vector>

#include "core/Palette.hpp"
#include "engine3d/RenderContext.hpp"
#include "engine3d/procedural/ProceduralView.hpp"

namespace vz {

struct WireModel {
    struct Wire {
        int from = 0, to = 0;  // indices into points
        std::uint8_t colour = 0;
    };
    std::vector<Vec3> points;
    std::vector<Wire> wires;

    int add(const Vec3& p) {
        points.push_back(p);
        return static_cast<int>(points.size()) - 1;
    }
    void link(int from, int to, std::uint8_t colour) { wires.push_back({from, to, colour}); }
};

// Layers of five-petalled rose curves, cupped upward and turned against each other, on a
// bent stem; each petal runs from dark at the heart to the palette's last entry at its tip.
WireModel flowerWires();

// Two strands winding two and a half turns about the vertical axis, joined by rungs whose
// two halves take the palette's entries 64 and 192; the strands run through the palette
// from bottom to top.
WireModel helixWires();

// Every wire of the model, turned and placed by `pose`, seen by the frame's camera and
// clipped, drawn in the palette's colours through the rendu operator (chosen once, as
// the mesh players' wireframe does). `cameraSpace` is working room kept between frames.
void drawWires(const RenderContext& context, const WireModel& model, const ModelPose& pose, const Palette& palette,
               int rendu, std::vector<Vec3T<double>>& cameraSpace, Layer32bpp& target);

}  // namespace vz
