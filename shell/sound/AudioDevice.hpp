#pragma once
// The sound card: 44100 Hz stereo 16-bit output whose thread asks for blocks of
// samples through a fill function. Only the audio part of SDL is started and stopped
// here, so the display's use of SDL is left alone.
#include <cstdint>
#include <string>

namespace vz {

class AudioDevice {
public:
    // Called on the device's thread, with the device locked, to produce `frames`
    // interleaved stereo frames.
    using Fill = void (*)(void* user, std::int16_t* out, int frames);

    AudioDevice() = default;
    ~AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;

    // Opens the device, paused. False, with the reason in `why`, when it cannot.
    bool open(Fill fill, void* user, std::string& why);
    // Lets the device thread start asking for samples.
    void start();
    void close();
    bool isOpen() const { return id_ != 0; }
    // Frames of one device buffer (the block size the fill function is asked for).
    int bufferFrames() const { return bufferFrames_; }

    // Holds off the fill function; keep the span short (the device thread waits).
    void lock();
    void unlock();

private:
    static void callback(void* self, std::uint8_t* stream, int bytes);

    std::uint32_t id_ = 0;
    int bufferFrames_ = 0;
    Fill fill_ = nullptr;
    void* user_ = nullptr;
};

}  // namespace vz
