// Copies of a mesh (a small cube, most often) arranged and turned as a whole: a cube of
// cubes, the same waving, and a grid of cubes whose turns lag with the distance from its
// centre. Each draws through the z-buffer renderer into its target and depth buffer.
#include <cmath>
#include <numbers>

#include "core/Zbuffer.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/TrackValues.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/procedural/MeshCopies.hpp"
#include "engine3d/procedural/ProceduralView.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/Show.hpp"

namespace vz {

namespace {

Mat3 rotationOf(const Vector3& angles) {
    const Vec3 a = finiteVec3(angles);
    return rotationFromAngles(a.x, a.y, a.z);
}

constexpr Vec3 ahead{0, 0, static_cast<float>(modelDistance)};

}  // namespace

// The target, its z-buffer, the mesh and its rotation track: what every kind reads first.
class MeshCopiesComponent : public Component {
protected:
    explicit MeshCopiesComponent(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          zbuffer_(in.symbol<Zbuffer>()),
          mesh_(in.symbol<Meshe>()),
          rotation_(in.symbol<KeytrackVector3>()),
          settings_(in.show().settings<EngineSettings>()) {
        in.requireSameSize("the zbuffer", zbuffer_, target_);
    }

    Layer32bpp& target_;
    Zbuffer& zbuffer_;
    Meshe& mesh_;
    KeytrackVector3& rotation_;
    const EngineSettings& settings_;
    MeshCopies copies_;
};

// side^3 copies on a cubic lattice 160 units across, turned as one block; each copy is
// scaled to 40 % of the lattice's pitch. The waving kind lifts each column by
// amplitude x pitch x sin(a wave running diagonally across the lattice).
class CubeOfCubes32bpp : public MeshCopiesComponent {
public:
    static constexpr int side = 4;
    static constexpr float pitch = 160.0f / side;

    CubeOfCubes32bpp(ComponentContext& in) : MeshCopiesComponent(in) {}
    void run(float t) override { drawLattice(t, 0); }

protected:
    void drawLattice(float t, float amplitude) {
        const Mat3 turn = rotationOf(rotation_.sample(t));
        const float scale = scaleToFit(mesh_, 0.4f * pitch);
        const float half = (side - 1) / 2.0f;
        copies_.begin(settings_, target_, zbuffer_, mesh_);
        for (int k = 0; k < side; ++k)
            for (int j = 0; j < side; ++j)
                for (int i = 0; i < side; ++i) {
                    const float wave =
                        std::sin(2 * std::numbers::pi_v<float> * static_cast<float>(i + k) / side + 3 * t);
                    const Vec3 cell{(i - half) * pitch, (j - half + amplitude * wave) * pitch, (k - half) * pitch};
                    copies_.add(turn, turn * cell + ahead, scale);
                }
        copies_.draw();
    }
};

class CubeOfCubesSinus32bpp : public CubeOfCubes32bpp {
public:
    CubeOfCubesSinus32bpp(ComponentContext& in) : CubeOfCubes32bpp(in), amplitude_(in.symbol<KeytrackFloat>()) {}
    void run(float t) override { drawLattice(t, finiteOr(amplitude_.sample(t), 0)); }

private:
    KeytrackFloat& amplitude_;
};

// side x side copies facing the camera, each turning by the rotation track `delay`
// seconds later per pitch of distance from the grid's centre: turns spread outward.
class CubesDelay32bpp : public MeshCopiesComponent {
public:
    static constexpr int side = 5;
    static constexpr float pitch = 36;

    CubesDelay32bpp(ComponentContext& in) : MeshCopiesComponent(in), delay_(in.realWithin("delay", 0, 3600)) {}

    void run(float t) override {
        const float scale = scaleToFit(mesh_, 0.45f * pitch);
        const float half = (side - 1) / 2.0f;
        copies_.begin(settings_, target_, zbuffer_, mesh_);
        for (int j = 0; j < side; ++j)
            for (int i = 0; i < side; ++i) {
                const float x = i - half, y = j - half;
                const float late = delay_ * std::sqrt(x * x + y * y);
                copies_.add(rotationOf(rotation_.sample(t - late)), Vec3{x * pitch, y * pitch, 0} + ahead, scale);
            }
        copies_.draw();
    }

private:
    float delay_;
};

VZ_COMPONENT("cubeOfCubes32bpp", CubeOfCubes32bpp)
VZ_COMPONENT("cubeOfCubesSinus32bpp", CubeOfCubesSinus32bpp)
VZ_COMPONENT("cubesDelay32bpp", CubesDelay32bpp)

}  // namespace vz
