#include "shell/sound/AudioDevice.hpp"

#include <SDL.h>

#include "shell/sound/SampleRate.hpp"

namespace vz {

namespace {
// About 23 ms per block: short enough for a tight clock, long enough not to starve.
constexpr int requestedBufferFrames = 1024;
}  // namespace

AudioDevice::~AudioDevice() { close(); }

bool AudioDevice::open(Fill fill, void* user, std::string& why) {
    close();
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        why = SDL_GetError();
        return false;
    }
    fill_ = fill;
    user_ = user;
    SDL_AudioSpec wanted{};
    wanted.freq = sampleRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = channelCount;
    wanted.samples = requestedBufferFrames;
    wanted.callback = &AudioDevice::callback;
    wanted.userdata = this;
    SDL_AudioSpec obtained{};
    // No changes allowed: SDL converts to whatever the hardware wants.
    id_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, 0);
    if (id_ == 0) {
        why = SDL_GetError();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    bufferFrames_ = obtained.samples;
    return true;
}

void AudioDevice::start() {
    if (id_) SDL_PauseAudioDevice(id_, 0);
}

void AudioDevice::close() {
    if (id_ == 0) return;
    SDL_CloseAudioDevice(id_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    id_ = 0;
    bufferFrames_ = 0;
}

void AudioDevice::lock() {
    if (id_) SDL_LockAudioDevice(id_);
}

void AudioDevice::unlock() {
    if (id_) SDL_UnlockAudioDevice(id_);
}

void AudioDevice::callback(void* self, std::uint8_t* stream, int bytes) {
    auto& device = *static_cast<AudioDevice*>(self);
    device.fill_(device.user_, reinterpret_cast<std::int16_t*>(stream), bytes / (channelCount * 2));
}

}  // namespace vz
