// Metaballs: five blobs wandering on paths of their own within a box 200 units across,
// their merged surface rebuilt every frame and painted with a material through the
// z-buffer renderer, the whole placed by a position track (the default camera's space:
// 0 0 400 is straight ahead, as far as the other procedural models). Every corner carries an environment mapping (u, v)
// and gouraud lighting (third mapping value and colour) of the material's colour, so any material kind shows the blobs
// shaded.
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "core/Zbuffer.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/TrackValues.hpp"
#include "engine3d/modifiers/Lighting.hpp"
#include "engine3d/procedural/MeshCopies.hpp"
#include "engine3d/procedural/Metaballs.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/Material.hpp"
#include "script/Show.hpp"

namespace vz {

class Metaballs32bpp : public Component {
public:
    // Grid points a side: the surface and the filling of a 640 x 480 frame take about
    // as long, well within a 60th of a second on one core (see the benchmark).
    static constexpr int gridPoints = 28;
    static constexpr float halfExtent = 100, ballRadius = 55, wander = 45;
    static constexpr int maxFaces = 20000;
    // Above, to the left of and before the blobs: the gouraud values of every corner.
    static constexpr Vec3 light{-200, 200, -300};
    // Paces (radians a second) of each ball along x, y and z.
    static constexpr std::array<std::array<float, 3>, 5> paces{
        {{0.9f, 1.3f, 0.7f}, {1.1f, 0.6f, 1.4f}, {0.5f, 1.7f, 1.0f}, {1.5f, 0.8f, 0.4f}, {0.7f, 1.0f, 1.6f}}};

    Metaballs32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          zbuffer_(in.symbol<Zbuffer>()),
          material_(in.symbol<Material>()),
          position_(in.symbol<KeytrackVector3>()),
          settings_(in.show().settings<EngineSettings>()),
          surface_(gridPoints, halfExtent, maxFaces),
          mesh_(makeMetaballMesh(maxFaces)),
          balls_(paces.size()),
          colours_(3 * static_cast<std::size_t>(maxFaces), material_.color) {
        in.requireSameSize("the zbuffer", zbuffer_, target_);
    }

    void run(float t) override {
        for (std::size_t i = 0; i < paces.size(); ++i) {
            const auto& pace = paces[i];
            const float phase = static_cast<float>(i) * 1.7f;
            balls_[i] = {{wander * std::sin(pace[0] * t + phase), wander * std::sin(pace[1] * t + 2 * phase),
                          wander * std::sin(pace[2] * t + 3 * phase)},
                         ballRadius};
        }
        surface_.build(balls_, *mesh_, &material_);
        gouraudLighting(*mesh_, light, colours_);
        copies_.begin(settings_, target_, zbuffer_, *mesh_);
        copies_.add(Mat3{}, finiteVec3(position_.sample(t)), 1);
        copies_.draw();
    }

private:
    Layer32bpp& target_;
    Zbuffer& zbuffer_;
    Material& material_;
    KeytrackVector3& position_;
    const EngineSettings& settings_;
    MetaballSurface surface_;
    std::unique_ptr<Meshe> mesh_;
    std::vector<Ball> balls_;
    const std::vector<std::uint32_t> colours_;  // the material's colour, for every corner
    MeshCopies copies_;
};

VZ_COMPONENT("metaballs32bpp", Metaballs32bpp)

}  // namespace vz
