// A swarm of particles drawn into the Lorenz attractor (LorenzSwarm.hpp), seen from the
// front where its two wings show, the view swaying 10 degrees to either side round the
// vertical axis every 20 seconds: each particle is one pixel of the colour through the
// rendu. There is one particle for every 16 pixels of the target.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/procedural/LorenzSwarm.hpp"
#include "effects/procedural/ShowSteps.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/RenduTrack.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

class DynamicSystem32bpp : public Component {
public:
    static constexpr double sway = 0.17, swayPace = 0.05;  // radians; sways a second
    static constexpr int pixelsPerParticle = 16;

    DynamicSystem32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          rendu_(in.symbol<KeytrackInt>()),
          swarm_(static_cast<int>(std::max<std::int64_t>(1, target_.pixelCount() / pixelsPerParticle)),
                 takeRandomSeed()) {}

    void run(float t) override {
        swarm_.advanceTo(stepsAt(t, LorenzSwarm::stepsPerSecond));
        // The attractor spans about 60 units across and 50 up: fit it to the height, its
        // base near the bottom.
        const float scale = target_.height / 60.0f;
        const float cx = target_.width / 2.0f, base = target_.height * 0.92f;
        const double turn = sway * std::sin(2.0 * std::numbers::pi * swayPace * t);
        const float c = static_cast<float>(std::cos(turn)) * scale, s = static_cast<float>(std::sin(turn)) * scale;
        const float w = static_cast<float>(target_.width), h = static_cast<float>(target_.height);
        const std::uint32_t colour = colour_.value;
        withRendu(sampleRendu(rendu_, t), [&](auto r) {
            for (const LorenzSwarm::Particle& p : swarm_.particles()) {
                const float x = cx + p.x * c - p.y * s, y = base - p.z * scale;
                if (!(x >= 0 && x < w && y >= 0 && y < h)) continue;
                std::uint32_t& d = target_.row(static_cast<int>(y))[static_cast<int>(x)];
                d = blend::op<decltype(r)::value>(colour, d);
            }
        });
    }

private:
    Layer32bpp& target_;
    const Color& colour_;
    KeytrackInt& rendu_;
    LorenzSwarm swarm_;
};

VZ_COMPONENT("dynamicSystem32bpp", DynamicSystem32bpp)

}  // namespace vz
