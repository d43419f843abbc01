#pragma once
// A piece of music turned into 44100 Hz stereo 16-bit samples, one block at a time.
// Decoders are made on the main thread and then rendered on whichever thread feeds
// the output (the audio device's thread, or the main thread in lock-step runs).
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vz {

class MusicDecoder {
public:
    virtual ~MusicDecoder() = default;
    // Writes up to `frames` interleaved stereo frames and returns how many it wrote;
    // fewer only at the end of the music (the caller fills the rest with silence).
    virtual std::size_t render(std::int16_t* out, std::size_t frames) = 0;
    // Master volume 0-255. Safe to call from the main thread while another thread
    // renders: the new volume takes effect at the next rendered block.
    virtual void setVolume(int /*volume*/) {}
    // Moves the playing position to `seconds` after where the music was opened to start,
    // as if that much had been rendered from there (main thread, while nothing renders it).
    virtual void seek(double seconds) = 0;
};

// A tracker module (any format libopenmpt plays) positioned at the start of `order`,
// or null with `why` set when the bytes are not a module it can play.
std::unique_ptr<MusicDecoder> openModule(const std::vector<std::uint8_t>& bytes, int order, std::string& why);

// An MP3 stream positioned `startMs` milliseconds in, or null with `why` set.
std::unique_ptr<MusicDecoder> openStream(std::vector<std::uint8_t> bytes, int startMs, std::string& why);

// Fills `frames` stereo frames from `music` (silence where it has nothing, or when null).
// Returns the frames that came from the music.
std::size_t renderOrSilence(MusicDecoder* music, std::int16_t* out, std::size_t frames);

}  // namespace vz
