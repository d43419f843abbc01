#pragma once
// --record: the frames of a headless run piped into the program ffmpeg (found on PATH)
// as they are drawn, then the music rendered beside them muxed in by a second ffmpeg
// run. Container and codecs are ffmpeg's choice for the output file's extension.
#include <cstdint>
#include <string>

namespace vz {

class VideoRecorder {
public:
    // Starts ffmpeg on frames of width x height at `fps`; throws error when ffmpeg is
    // not on PATH or cannot be started.
    VideoRecorder(const std::string& output, int width, int height, double fps);
    ~VideoRecorder();
    VideoRecorder(const VideoRecorder&) = delete;
    VideoRecorder& operator=(const VideoRecorder&) = delete;

    // The WAV file the run should write its music to, unless it keeps one of its own;
    // removed by finish().
    const std::string& audioFile() const { return audio_; }
    // One frame (width x height pixels 0x00RRGGBB); throws error when ffmpeg stopped.
    void frame(const std::uint32_t* pixels);
    // Ends the video and muxes `audio` in (nothing muxed and the output left out when
    // empty). False, said on standard error, when ffmpeg failed.
    bool finish(const std::string& audio);

    // The full path of `program` on PATH, or empty.
    static std::string findProgram(const std::string& program);

private:
    void stopEncoder();

    std::string output_;
    std::string video_;  // the video without sound, beside the output
    std::string audio_;
    std::size_t frameBytes_;
    int pipe_ = -1;
    int pid_ = -1;
};

}  // namespace vz
