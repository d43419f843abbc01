#include "shell/sound/MusicComponents.hpp"

#include <algorithm>

#include "script/TextParser.hpp"
#include "shell/sound/SoundSystem.hpp"

namespace vz {

PlayModule::PlayModule(Sequencer&, TextParser& parser)
    : fileName_(parser.getTokenCopy()), startPosition_(parser.getInt()), timeOffset_(parser.getFloat()) {}

void PlayModule::run(float) {
    if (started_) return;
    started_ = true;
    SoundSystem::instance().playModule(fileName_, startPosition_, timeOffset_);
}

PlayMp3::PlayMp3(Sequencer&, TextParser& parser) : fileName_(parser.getTokenCopy()) {
    // Whole milliseconds, cut towards zero; kept inside the range of an int.
    startMs_ = static_cast<int>(std::clamp(parser.getFloat() * 1000.0, -2147483648.0, 2147483647.0));
    timeOffset_ = parser.getFloat();
}

void PlayMp3::run(float) {
    if (started_) return;
    started_ = true;
    SoundSystem::instance().playStream(fileName_, startMs_, timeOffset_);
}

FadeVolume::FadeVolume(Sequencer&, TextParser& parser) : begin_(parser.getFloat()), end_(parser.getFloat()) {}

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
