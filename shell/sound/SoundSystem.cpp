#include "shell/sound/SoundSystem.hpp"

#include <atomic>
#include <chrono>
#include <cmath>
#include <ctime>
#include <iostream>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "shell/sound/AudioDevice.hpp"
#include "shell/sound/DeviceClock.hpp"
#include "shell/sound/MusicDecoder.hpp"
#include "shell/sound/MusicFile.hpp"
#include "shell/sound/SampleRate.hpp"
#include "shell/sound/Timer.hpp"
#include "shell/sound/WavWriter.hpp"

namespace vz {

namespace {

enum class MusicKind { none, module, stream };

std::int64_t threadCpuNanoseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

// Reads and opens a music file; null (said on stderr) when it cannot be played.
std::unique_ptr<MusicDecoder> loadMusic(const std::string& name, MusicKind kind, int where) {
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readMusicFile(name, bytes, why)) {
        std::cerr << "vzplayer: cannot read music file " << name << ": " << why << " (the show runs on the timer)\n";
        return nullptr;
    }
    auto music = kind == MusicKind::module ? openModule(bytes, where, why) : openStream(std::move(bytes), where, why);
    if (!music)
        std::cerr << "vzplayer: cannot play music file " << name << ": " << why << " (the show runs on the timer)\n";
    return music;
}

}  // namespace

struct SoundSystem::State {
    bool nosound = false;
    AudioMode mode = AudioMode::device;
    double framesPerSecond = 50.0;
    float timeOffset = 0.0f;
    Timer timer;  // the show's clock while no music plays

    AudioDevice device;
    std::unique_ptr<DeviceClock> clock;  // exists while the device is open

    // The music heard. The device thread reads `music` inside its fill function, so
    // the main thread replaces it only with the device locked.
    std::unique_ptr<MusicDecoder> music;
    MusicKind kind = MusicKind::none;
    double musicStart = 0.0;  // a stream's position when it started, in seconds
    double musicBase = 0.0;   // device mode: seconds of the music heard before the device clock's restart

    // Holding (fast-forward, pause): the music kept back from the device.
    bool holding = false;
    std::unique_ptr<MusicDecoder> parked;

    // Lock-step rendering.
    std::int64_t frameIndex = 0;
    std::int64_t musicFrames = 0;  // rendered since the music started
    std::vector<std::int16_t> frameAudio;
    WavWriter wav;

    std::atomic<std::int64_t> framesHandedOver{0};
    std::atomic<std::int64_t> callbackCpuNs{0};

    // Device thread: the next block, and the clock's record of it.
    static void fillDevice(void* user, std::int16_t* out, int frames) {
        auto& state = *static_cast<State*>(user);
        const auto when = DeviceClock::Clock::now();
        const std::int64_t cpuBefore = threadCpuNanoseconds();
        renderOrSilence(state.music.get(), out, static_cast<std::size_t>(frames));
        state.clock->handOver(frames, when);
        state.framesHandedOver.fetch_add(frames, std::memory_order_relaxed);
        state.callbackCpuNs.fetch_add(threadCpuNanoseconds() - cpuBefore, std::memory_order_relaxed);
    }

    bool canPlay() const { return mode == AudioMode::lockStep || device.isOpen(); }

    // Makes `next` the music heard from now on; the old one is freed outside the lock.
    void install(std::unique_ptr<MusicDecoder> next, MusicKind nextKind, double start) {
        device.lock();
        std::swap(music, next);
        if (clock) clock->restart();
        device.unlock();
        kind = music ? nextKind : MusicKind::none;
        musicStart = start;
        musicBase = 0.0;
        musicFrames = 0;
    }

    // The samples frame `frameIndex` covers at the frame rate.
    std::size_t framesOfThisFrame() const {
        const double samplesPerFrame = sampleRate / framesPerSecond;
        const auto first = std::llround(static_cast<double>(frameIndex) * samplesPerFrame);
        const auto next = std::llround(static_cast<double>(frameIndex + 1) * samplesPerFrame);
        return static_cast<std::size_t>(next - first);
    }

    // Seconds of the current music heard so far.
    double heard() {
        if (mode == AudioMode::lockStep || holding) return static_cast<double>(musicFrames) / sampleRate;
        return musicBase + clock->position(DeviceClock::Clock::now());
    }

    void restartTimer() {
        timer.stop();
        timer.set(0.0);
        timer.start();
    }

    void startMusic(const std::string& name, MusicKind nextKind, int where, float offset, double start) {
        restartTimer();
        timeOffset = offset;
        install(nullptr, MusicKind::none, 0.0);
        if (nosound) return;
        logout() << "loading of " << name << lend;
        // Without a working device nothing is loaded: the show goes on with the timer.
        auto next = canPlay() ? loadMusic(name, nextKind, where) : nullptr;
        logout() << "playing of " << name << lend;
        if (holding) {
            // Kept back until release(); the clock counts it as playing from now.
            kind = next ? nextKind : MusicKind::none;
            parked = std::move(next);
            musicStart = start;
            musicFrames = 0;
            return;
        }
        install(std::move(next), nextKind, start);
    }

    // Device mode runs the timer on real time, and frame by frame while holding; the
    // reading carries over either way.
    void driveTimer(double fps) {
        if (mode != AudioMode::device) return;
        const double now = timer.time();
        timer.driveByFrames(fps);
        timer.set(now);
        timer.start();
    }
};

SoundSystem& SoundSystem::instance() {
    static SoundSystem sound;
    return sound;
}

SoundSystem::SoundSystem() : state_(std::make_unique<State>()) {}

SoundSystem::~SoundSystem() = default;

void SoundSystem::initialise(bool nosound, AudioMode mode, double framesPerSecond) {
    close();
    State& s = *state_;
    if (mode == AudioMode::lockStep && !(framesPerSecond > 0.0)) throw error("the frame rate must be positive");
    s.nosound = nosound;
    s.mode = mode;
    s.framesPerSecond = framesPerSecond;
    s.frameIndex = 0;
    s.frameAudio.clear();
    s.framesHandedOver = 0;
    s.callbackCpuNs = 0;
    s.timer.driveByFrames(mode == AudioMode::lockStep ? framesPerSecond : 0.0);
    s.restartTimer();
    s.timeOffset = 0.0f;
    if (nosound || mode != AudioMode::device) return;
    std::string why;
    if (!s.device.open(&State::fillDevice, &s, why)) {
        // A silent failure for the show; the person running it still learns why.
        static bool reported = false;
        if (!reported) std::cerr << "vzplayer: no audio device (" << why << "): the show runs on the timer\n";
        reported = true;
        return;
    }
    s.clock = std::make_unique<DeviceClock>(sampleRate, s.device.bufferFrames());
    s.device.start();
}

float SoundSystem::currentTime() {
    State& s = *state_;
    if (s.kind == MusicKind::none) return static_cast<float>(s.timer.time() + s.timeOffset);
    return static_cast<float>(s.musicStart + s.heard() + s.timeOffset);
}

void SoundSystem::close() {
    State& s = *state_;
    if (s.holding) release();
    s.install(nullptr, MusicKind::none, 0.0);
    s.device.close();
    s.clock.reset();
    s.wav.close();
}

void SoundSystem::playModule(const std::string& fileName, int order, float timeOffset) {
    state_->startMusic(fileName, MusicKind::module, order, timeOffset, 0.0);
}

void SoundSystem::playStream(const std::string& fileName, int startMs, float timeOffset) {
    state_->startMusic(fileName, MusicKind::stream, startMs, timeOffset, startMs * 0.001);
}

void SoundSystem::setModuleVolume(int volume) {
    State& s = *state_;
    MusicDecoder* module = s.holding ? s.parked.get() : s.music.get();
    if (s.kind == MusicKind::module && module) module->setVolume(volume);
}

bool SoundSystem::nosound() const { return state_->nosound; }
bool SoundSystem::modulePlaying() const { return state_->kind == MusicKind::module; }
bool SoundSystem::streamPlaying() const { return state_->kind == MusicKind::stream; }

void SoundSystem::setAudioOut(const std::string& path) {
    if (state_->mode != AudioMode::lockStep) throw error("audio output to a file needs headless (lock-step) sound");
    state_->wav.open(path, sampleRate, channelCount);
}

void SoundSystem::endFrame() {
    State& s = *state_;
    if (s.holding) {
        // The frame's time passes in silence: nothing is rendered nor written.
        s.timer.frameDone();
        if (s.kind != MusicKind::none) s.musicFrames += static_cast<std::int64_t>(s.framesOfThisFrame());
        ++s.frameIndex;
        return;
    }
    if (s.mode != AudioMode::lockStep) return;
    s.timer.frameDone();
    const std::size_t frames = s.framesOfThisFrame();
    s.frameAudio.resize(frames * channelCount);
    renderOrSilence(s.music.get(), s.frameAudio.data(), frames);
    if (s.kind != MusicKind::none) s.musicFrames += static_cast<std::int64_t>(frames);
    s.wav.append(s.frameAudio.data(), s.frameAudio.size());
    ++s.frameIndex;
}

const std::vector<std::int16_t>& SoundSystem::lastFrameAudio() const { return state_->frameAudio; }

void SoundSystem::hold() {
    State& s = *state_;
    if (s.holding) return;
    if (s.kind != MusicKind::none) s.musicFrames = std::llround(s.heard() * sampleRate);
    s.holding = true;
    s.driveTimer(s.framesPerSecond);
    s.device.lock();
    std::swap(s.parked, s.music);
    s.device.unlock();
}

void SoundSystem::release() {
    State& s = *state_;
    if (!s.holding) return;
    s.holding = false;
    s.driveTimer(0.0);
    // From the clock's reading, not from where the decoder stopped: a device had taken
    // samples ahead of what was heard.
    if (s.parked) s.parked->seek(static_cast<double>(s.musicFrames) / sampleRate);
    s.device.lock();
    std::swap(s.music, s.parked);
    if (s.clock) s.clock->restart();
    s.device.unlock();
    s.parked.reset();
    s.musicBase = static_cast<double>(s.musicFrames) / sampleRate;
}

bool SoundSystem::holding() const { return state_->holding; }

void SoundSystem::restartClock() {
    State& s = *state_;
    s.parked.reset();
    s.kind = MusicKind::none;
    s.musicStart = 0.0;
    s.musicFrames = 0;
    s.timeOffset = 0.0f;
    s.frameIndex = 0;
    s.restartTimer();
}

SoundSystem::DeviceStatistics SoundSystem::deviceStatistics() const {
    const State& s = *state_;
    DeviceStatistics stats;
    stats.deviceOpen = s.device.isOpen();
    stats.bufferFrames = s.device.bufferFrames();
    stats.secondsHandedOver = static_cast<double>(s.framesHandedOver.load()) / sampleRate;
    stats.callbackCpuSeconds = static_cast<double>(s.callbackCpuNs.load()) * 1e-9;
    return stats;
}

}  // namespace vz
