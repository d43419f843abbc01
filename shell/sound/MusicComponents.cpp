#include "shell/sound/MusicComponents.hpp"

#include <algorithm>

#include "core/SafeNumbers.hpp"
#include "core/error.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"
#include "shell/sound/MusicDecoder.hpp"
#include "shell/sound/MusicFile.hpp"
#include "shell/sound/SoundSystem.hpp"

namespace vz {

namespace {

// A checked show opens its music at once, since it will never play it.
void checkMusic(ComponentContext& in, const std::string& name, bool module) {
    ScriptCheck* check = in.show().check;
    if (!check || !check->music) return;
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readMusicFile(name, bytes, why)) throw error("cannot read music file " + name + ": " + why);
    check->files.insert(name);
    const auto music = module ? openModule(bytes, 0, why) : openStream(std::move(bytes), 0, why);
    if (!music) throw error("cannot play music file " + name + ": " + why);
}

}  // namespace

PlayModule::PlayModule(ComponentContext& in)
    : fileName_(in.word()),
      startPosition_(in.integer()),
      timeOffset_(in.realWithin("timeOffset", -maxClockSeconds, maxClockSeconds)) {
    checkMusic(in, fileName_, true);
}

void PlayModule::run(float) {
    if (started_) return;
    started_ = true;
    SoundSystem::instance().playModule(fileName_, startPosition_, timeOffset_);
}

PlayMp3::PlayMp3(ComponentContext& in) : fileName_(in.word()) {
    // Whole milliseconds, cut towards zero.
    startMs_ = static_cast<int>(in.realWithin("startTime", 0.0, maxClockSeconds) * 1000.0);
    timeOffset_ = in.realWithin("timeOffset", -maxClockSeconds, maxClockSeconds);
    checkMusic(in, fileName_, false);
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
