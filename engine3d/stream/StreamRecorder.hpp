#pragma once
// Writes a scene stream: the faces that own a pixel of the identification picture are
// marked, and each sample appends the faces whose state changed since the last one.
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace vz {

class StreamRecorder {
public:
    // Creates the file with the header (one face count per object, at most 32 objects
    // of at most 16384 faces) and the empty first frame. Fails naming the file.
    StreamRecorder(const std::string& fileName, const std::vector<int>& faceCounts);
    ~StreamRecorder();
    StreamRecorder(const StreamRecorder&) = delete;
    StreamRecorder& operator=(const StreamRecorder&) = delete;

    // An identification picture: each pixel holds object << 16 | (face + 1), 0 where no
    // face is. The outermost rows and columns are not looked at. The faces found take
    // `bits`: the visible and ever-seen bits, and the second flag when the picture is fed
    // to both inputs.
    void mark(const std::uint32_t* ids, int width, int height, std::uint8_t bits = 1 | 64);
    // Appends one sample and logs "Streamer: size of Frame = " and its size.
    void writeFrame(float time);
    // Writes the total size into the header and closes the file (also on destruction).
    void close();

    // The change encoder over one object's visibility bytes: appends the entries, and
    // returns how many, or -1 when there are none and no face is in the written state
    // (the object's chunk is then left out).
    static int encode(std::vector<std::uint8_t>& faces, std::vector<std::uint8_t>& out);

    std::vector<std::uint8_t>& visibility(int object) { return faces_[object]; }

private:
    void write();  // the frame buffer to the file

    std::string fileName_;
    std::FILE* file_ = nullptr;
    std::vector<std::uint8_t> frame_;  // grows with the largest frame, then reused
    std::uint32_t size_ = 0;
    std::array<std::vector<std::uint8_t>, 32> faces_;
};

}  // namespace vz
