// Flares: a sprite layer drawn at points of 3D space, blended by a rendu track (the
// sprite's black pixels leave the target as it is).
#include <array>

#include "effects/rendu/RenduTrack.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/TrackValues.hpp"
#include "engine3d/procedural/FlarePoints.hpp"
#include "engine3d/procedural/ProceduralView.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/Show.hpp"

namespace vz {

// Both kinds read a target, a sprite, a three-value track and a rendu track, and start
// each frame with the default camera on the target.
class FlareComponent : public Component {
protected:
    explicit FlareComponent(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          sprite_(in.symbol<Layer32bpp>()),
          track_(in.symbol<KeytrackVector3>()),
          rendu_(in.symbol<KeytrackInt>()),
          settings_(in.show().settings<EngineSettings>()) {
        in.requireDistinct(target_, sprite_);
    }
    // The frame's track value and rendu, the camera set on the target.
    Vector3 begin(float t, int& rendu) {
        beginProceduralFrame(context_, settings_, target_);
        rendu = sampleRendu(rendu_, t);
        return track_.sample(t);
    }

    Layer32bpp& target_;
    const Layer32bpp& sprite_;
    RenderContext context_;

private:
    KeytrackVector3& track_;
    KeytrackInt& rendu_;
    const EngineSettings& settings_;
};

// A cube turned by the rotation track, a flare at each corner and smaller ones along its
// edges.
class FlareCube32bpp : public FlareComponent {
public:
    static constexpr float halfSide = 70;
    static constexpr int pointsPerEdge = 4;  // between the corners
    static constexpr float cornerScale = 0.75f, edgeScale = 0.35f;

    FlareCube32bpp(ComponentContext& in) : FlareComponent(in) {}

    void run(float t) override {
        int rendu;
        const ModelPose pose = poseFromAngles(begin(t, rendu));
        points_.clear();
        for (int corner = 0; corner < 8; ++corner) {
            const Vec3 from = cornerAt(corner);
            points_.add(pose(from), cornerScale);
            // Each edge once: from a corner to the corners with one more coordinate set.
            for (int axis = 0; axis < 3; ++axis) {
                if (corner & 1 << axis) continue;
                const Vec3 to = cornerAt(corner | 1 << axis);
                for (int k = 1; k <= pointsPerEdge; ++k)
                    points_.add(pose(from + (to - from) * (static_cast<float>(k) / (pointsPerEdge + 1))), edgeScale);
            }
        }
        points_.draw(context_, target_, sprite_, rendu);
    }

private:
    // Corner bits 0, 1, 2 choose the positive side of x, y, z.
    static Vec3 cornerAt(int bits) {
        return {bits & 1 ? halfSide : -halfSide, bits & 2 ? halfSide : -halfSide, bits & 4 ? halfSide : -halfSide};
    }

    FlarePoints points_;
};

// A light at the tracked position (space of the default camera: (0, 0, 400) is straight
// ahead), its sprite at the light and ghosts strung along the line from the light
// through the centre of the target, as a lens shows a bright light. Give the track
// spline interpolation and the light follows a smooth path.
class LensflareSpline32bpp : public FlareComponent {
public:
    struct Ghost {
        float along;  // 1 at the light, 0 at the centre, -1 mirrored through it
        float scale;
    };
    static constexpr std::array<Ghost, 7> ghosts{
        {{1.0f, 1.0f}, {0.55f, 0.25f}, {0.25f, 0.4f}, {-0.15f, 0.2f}, {-0.4f, 0.5f}, {-0.7f, 0.3f}, {-1.0f, 0.7f}}};

    LensflareSpline32bpp(ComponentContext& in) : FlareComponent(in) {}

    void run(float t) override {
        int rendu;
        const Vec3 light = finiteVec3(begin(t, rendu));
        const CameraView& camera = context_.camera;
        const Vec3T<double> seen = seenBy(camera, static_cast<Vec3T<double>>(light));
        if (!(seen.z >= nearPlane)) return;  // behind the camera: no flare
        const ProjectedPoint at = project(camera, seen);
        for (const Ghost& ghost : ghosts)
            drawFlare(target_, sprite_, at.px * ghost.along, at.py * ghost.along, ghost.scale, rendu);
    }
};

VZ_COMPONENT("flareCube32bpp", FlareCube32bpp)
VZ_COMPONENT("lensflareSpline32bpp", LensflareSpline32bpp)

}  // namespace vz
