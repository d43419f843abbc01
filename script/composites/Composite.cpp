#include "script/composites/Composite.hpp"

#include <limits>

#include "script/ComponentContext.hpp"

namespace vz {

Composite::Composite(ComponentContext& in) : nested_(in.word(), in.sequencer()) {}

void Composite::run(float localTime) { nested_.run(localTime); }

FrameDependentComposite::FrameDependentComposite(ComponentContext& in) : nested_(in.word(), in.sequencer()) {
    // The fps follows the script name on the line.
    const float fps = in.real();
    interval_ = fps == 0.0f ? std::numeric_limits<float>::infinity() : 1.0f / fps;
}

void FrameDependentComposite::run(float localTime) {
    // Strictly greater: a frame exactly one interval after the last run does not run.
    if (localTime - lastRunTime_ > interval_) {
        lastRunTime_ = localTime;
        nested_.run(localTime);
    }
}

VZ_COMPONENT("composite", Composite)
VZ_COMPONENT("frameDependentComposite", FrameDependentComposite)

}  // namespace vz
