// The fire keyword: the fire of Fire.hpp on an 8-bit layer, stepped with the show's time
// (60 steps a second, whatever the frame rate) and seeded like the other noisy effects,
// so headless runs repeat exactly. Show it through a palette (copyBitmapLayer32bpp) or use
// it as a relief.
#include "core/Layer.hpp"
#include "effects/procedural/Fire.hpp"
#include "effects/procedural/ShowSteps.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

class HobbinFire8bpp : public Component {
public:
    static constexpr double stepsPerSecond = 60.0;
    static constexpr double catchUpSeconds = 2.0;

    HobbinFire8bpp(ComponentContext& in)
        : target_(in.symbol<Layer8bpp>()), fire_(target_.width, target_.height, takeRandomSeed()) {}

    // Time going back starts the fire again from black; a jump of more than two seconds
    // runs only the last two seconds of steps.
    void run(float t) override {
        const std::int64_t due = stepsAt(t, stepsPerSecond);
        if (reached_ < 0 || due < reached_) {
            fire_.restart(target_.pixels);
            reached_ = 0;
        }
        const auto catchUp = static_cast<std::int64_t>(catchUpSeconds * stepsPerSecond);
        if (due - reached_ > catchUp) reached_ = due - catchUp;
        for (; reached_ < due; ++reached_) fire_.step(target_.pixels);
    }

private:
    Layer8bpp& target_;
    Fire fire_;
    std::int64_t reached_ = -1;  // steps made since the last restart; -1 before the first run
};

VZ_COMPONENT("fire8bpp", HobbinFire8bpp)

}  // namespace vz
