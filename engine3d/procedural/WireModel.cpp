#include "engine3d/procedural/WireModel.hpp"

#include <cmath>
#include <numbers>

#include "engine3d/WireframeDrawing.hpp"

namespace vz {

namespace {

constexpr float turn = 2 * std::numbers::pi_v<float>;

std::uint8_t paletteIndex(float fraction) { return static_cast<std::uint8_t>(std::lround(fraction * 255.0f)); }

}  // namespace

WireModel flowerWires() {
    constexpr int layers = 4, petals = 5, samples = 120, stemSegments = 8;
    WireModel model;
    for (int layer = 0; layer < layers; ++layer) {
        const float radius = 100.0f * (1.0f - 0.2f * layer);
        const float twist = static_cast<float>(layer) * turn / (2 * petals);  // the next layer fills the gaps
        const float lift = 12.0f * layer;
        int previous = -1, first = -1;
        for (int i = 0; i < samples; ++i) {
            const float angle = turn * static_cast<float>(i) / samples;
            const float r = radius * std::fabs(std::cos(petals * angle / 2));
            const float reach = r / radius;  // 0 at the heart, 1 at a tip
            const int point = model.add(
                {r * std::cos(angle + twist), -20.0f + 40.0f * reach * reach + lift, r * std::sin(angle + twist)});
            if (previous >= 0) model.link(previous, point, paletteIndex(reach));
            if (first < 0) first = point;
            previous = point;
        }
        model.link(previous, first, 255);  // the curve starts and closes on a tip
    }
    int previous = model.add({0, -20, 0});
    for (int i = 1; i <= stemSegments; ++i) {
        const float along = static_cast<float>(i) / stemSegments;
        const int point = model.add({12.0f * along * along, -20.0f - 120.0f * along, 0});
        model.link(previous, point, paletteIndex(0.5f * along));
        previous = point;
    }
    return model;
}

WireModel helixWires() {
    constexpr int samples = 160, rungEvery = 8;
    constexpr float radius = 45, halfHeight = 120, turns = 2.5f;
    WireModel model;
    int previous[2] = {-1, -1};
    for (int i = 0; i < samples; ++i) {
        const float along = static_cast<float>(i) / (samples - 1);
        const float angle = turn * turns * along;
        const float y = -halfHeight + 2 * halfHeight * along;
        int current[2];
        for (int strand = 0; strand < 2; ++strand) {
            const float a = angle + static_cast<float>(strand) * turn / 2;
            current[strand] = model.add({radius * std::cos(a), y, radius * std::sin(a)});
            if (previous[strand] >= 0) model.link(previous[strand], current[strand], paletteIndex(along));
            previous[strand] = current[strand];
        }
        if (i % rungEvery == rungEvery / 2) {
            const int middle = model.add({0, y, 0});
            model.link(current[0], middle, 64);
            model.link(middle, current[1], 192);
        }
    }
    return model;
}

void drawWires(const RenderContext& context, const WireModel& model, const ModelPose& pose, const Palette& palette,
               int rendu, std::vector<Vec3T<double>>& cameraSpace, Layer32bpp& target) {
    cameraSpace.resize(model.points.size());
    for (std::size_t i = 0; i < model.points.size(); ++i)
        cameraSpace[i] = seenBy(context.camera, pose(model.points[i]));
    withRendu(rendu, [&](auto r) {
        for (const WireModel::Wire& wire : model.wires) {
            ProjectedPoint a, b;
            if (projectSegment(context, cameraSpace[static_cast<std::size_t>(wire.from)],
                               cameraSpace[static_cast<std::size_t>(wire.to)], a, b))
                drawProjectedLine<decltype(r)::value>(target, context.viewport, a, b, palette.colors[wire.colour]);
        }
    });
}

}  // namespace vz
