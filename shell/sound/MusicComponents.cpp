#include "shell/sound/MusicComponents.hpp"

#include <algorithm>

#include "core/SafeNumbers.hpp"
#include "script/ComponentContext.hpp"
#include "shell/sound/SoundSystem.hpp"

namespace vz {

PlayModule::PlayModule(ComponentContext& in)
    : fileName_(in.word()),
      startPosition_(in.integer()),
      timeOffset_(in.realWithin("timeOffset", -maxClockSeconds, maxClockSeconds)) {}

void PlayModule::run(float) {
    if (started_) return;
    started_ = true;
    SoundSystem::instance().playModule(fileName_, startPosition_, timeOffset_);
}

PlayMp3::PlayMp3(ComponentContext& in) : fileName_(in.word()) {
    // Whole milliseconds, cut towards zero.
    startMs_ = static_cast<int>(in.realWithin("startTime", 0.0, maxClockSeconds) * 1000.0);
    timeOffset_ = in.realWithin("timeOffset", -maxClockSeconds, maxClockSeconds);
}

void PlayMp3::run(float) {
    if (started_) return;
    started_ = true;
    SoundSystem::instance().playStream(fileName_, startMs_, timeOffset_);
}

FadeVolume::FadeVolume(ComponentContext& in) : begin_(in.real()), end_(in.real()) {}

void FadeVolume::run(float localTime) {
    float volume = (end_ - begin_) * localTime + begin_;
    volume = std::min(volume, end_);
    volume = std::min(volume, 1.0f);
    if (!(volume > 0.0f)) volume = 0.0f;  // below 0 (or not a number) is silence
    SoundSystem::instance().setModuleVolume(static_cast<int>(volume * 255.0));
}

VZ_COMPONENT("playModule", PlayModule)
VZ_COMPONENT("playMp3", PlayMp3)
VZ_COMPONENT("fadeVolume", FadeVolume)

}  // namespace vz
