#pragma once
// The process-wide sound state: the show's clock and the music that drives it.
//
// While a module or a stream plays, the show's time is the music's own clock plus a
// time offset; otherwise it is the timer (shell/sound/Timer.hpp) plus the offset.
// A module's clock is the time since it started playing (starting at a later order
// changes what is heard, not the clock); a stream's clock is its playing position, so
// it starts at the position it was started from.
//
// Two ways to produce the sound:
// - AudioMode::device (windowed runs): an audio device plays the music on its own
//   thread; the clock follows what the device has consumed, latency included.
// - AudioMode::lockStep (headless runs): no device; the music is rendered by
//   endFrame(), one frame's worth of samples per frame, so its clock advances exactly
//   with the frames and setAudioOut() can write it as a WAV file that lines up with
//   them: frame n covers samples [round(n × 44100 / fps), round((n + 1) × 44100 / fps)).
//
// Use from the entry function:
//   start-up:  SoundSystem::instance().initialise(nosound, mode, fps);
//              (headless with --audio-out: setAudioOut(path) right after)
//   each frame: t = currentTime(); ... run the sequencer with t, present ...;
//              endFrame();
//   shut-down: close();
// Everything is called from the main thread.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vz {

enum class AudioMode { device, lockStep };

class SoundSystem {
public:
    static SoundSystem& instance();

    // Start-up: the timer is stopped, set to 0 and started, and the time offset is 0.
    // Unless `nosound`, device mode opens the audio device; a device that cannot be
    // opened leaves the show running on the timer (said once on standard error).
    // Lock-step mode drives the timer and the music by frames at `framesPerSecond`;
    // device mode runs the timer on real time and ignores it. Calling it again first
    // closes what the previous call opened.
    void initialise(bool nosound, AudioMode mode, double framesPerSecond = 50.0);

    // The show's time in seconds: music clock (or timer) plus the time offset.
    float currentTime();

    // Shut-down: stops and frees the music, closes the device and completes the WAV
    // file. Harmless under NOSOUND (there is no music nor device then), so the caller
    // may call it either way.
    void close();

    // The music components' operations. Both reset the timer to 0, set the time
    // offset, and end whatever music played before; unless NOSOUND they log
    // "loading of NAME" and "playing of NAME" and start the music: a module at the
    // start of order `order`, a stream `startMs` milliseconds in. A file that cannot
    // be read or played leaves no music (the show runs on the timer), said on stderr.
    void playModule(const std::string& fileName, int order, float timeOffset);
    void playStream(const std::string& fileName, int startMs, float timeOffset);
    // Master volume 0-255 of the current module; nothing when no module plays.
    void setModuleVolume(int volume);

    bool nosound() const;
    bool modulePlaying() const;
    bool streamPlaying() const;

    // Lock-step only. Writes the music from the next frame on to `path` as a 44100 Hz
    // stereo 16-bit WAV (throws error when it cannot be written or in device mode).
    void setAudioOut(const std::string& path);
    // End of every frame: in lock-step mode renders the frame's samples (and writes
    // them to the WAV file) and moves the timer on by one frame; nothing in device mode.
    void endFrame();
    // The interleaved stereo samples the last endFrame() rendered.
    const std::vector<std::int16_t>& lastFrameAudio() const;

    // Holding: the music goes silent and the show's clock runs by frames at the rate
    // given to initialise(), moved on only by endFrame(), which then renders nothing.
    // The player holds while it fast-forwards to a seek target and while it is paused;
    // music started meanwhile is loaded but kept back. release() moves the music to
    // the clock's reading (modules by time, streams by position) and lets it play on.
    void hold();
    void release();
    bool holding() const;
    // While holding: back to time 0 for a show that starts afresh (no music, no
    // offset), with the frame count of a fresh start.
    void restartClock();

    // What the device thread has done so far (device mode), for measurements.
    struct DeviceStatistics {
        bool deviceOpen = false;
        int bufferFrames = 0;           // frames per device block
        double secondsHandedOver = 0;   // music and silence given to the device
        double callbackCpuSeconds = 0;  // CPU time spent in the fill function
    };
    DeviceStatistics deviceStatistics() const;

private:
    struct State;

    SoundSystem();
    ~SoundSystem();
    SoundSystem(const SoundSystem&) = delete;
    SoundSystem& operator=(const SoundSystem&) = delete;

    std::unique_ptr<State> state_;
};

}  // namespace vz
