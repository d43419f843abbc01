#pragma once
// Components that run a whole nested timeline script as one effect. The nested script's
// times are the composite's local times, so the outer entry's begin, offset and speed
// shift and stretch the whole nested part of the show.
#include "script/Component.hpp"
#include "script/Sequencer.hpp"

namespace vz {

// "composite" script(nom de fichier)
class Composite : public Component {
public:
    Composite(ComponentContext& in);
    void run(float localTime) override;

private:
    Sequencer nested_;
};

// "frameDependentComposite" script(nom de fichier) fps: runs the nested script at most fps
// times per second of local time; frames in between leave its layers untouched.
class FrameDependentComposite : public Component {
public:
    FrameDependentComposite(ComponentContext& in);
    void run(float localTime) override;

private:
    float lastRunTime_ = -1.0f;
    float interval_ = 0;  // 1 / fps: an fps of 0 gives infinity, and the script never runs
    Sequencer nested_;
};

}  // namespace vz
