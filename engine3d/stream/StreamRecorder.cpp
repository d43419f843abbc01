#include "engine3d/stream/StreamRecorder.hpp"

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "engine3d/stream/SceneStream.hpp"

namespace vz {

using namespace stream;

StreamRecorder::StreamRecorder(const std::string& fileName, const std::vector<int>& faceCounts) : fileName_(fileName) {
    if (faceCounts.size() > static_cast<std::size_t>(maxObjects))
        fatal("Streamer : " + fileName + " : a stream holds at most 32 objects");
    for (int count : faceCounts)
        if (count < 0 || count > maxFaces)
            fatal("Streamer : " + fileName + " : an object of a stream holds at most 16384 faces");
    file_ = std::fopen(fileName.c_str(), "wb");
    if (!file_) fatal("Streamer : can not create " + fileName);
    frame_.reserve(65536);
    put32(frame_, magic);
    put32(frame_, 0);  // the total size, written at close
    for (int i = 0; i < maxObjects; ++i) {
        const int count = i < static_cast<int>(faceCounts.size()) ? faceCounts[i] : 0;
        put32(frame_, static_cast<std::uint32_t>(count));
        faces_[i].assign(count, 0);
    }
    put32(frame_, frameId);
    put32(frame_, chunkHeaderSize);
    put32(frame_, floatBits(0.0f));
    write();
    std::fflush(file_);
    size_ = static_cast<std::uint32_t>(frame_.size());
}

StreamRecorder::~StreamRecorder() { close(); }

void StreamRecorder::write() {
    if (std::fwrite(frame_.data(), 1, frame_.size(), file_) != frame_.size())
        fatal("Streamer : can not write " + fileName_);
}

void StreamRecorder::mark(const std::uint32_t* ids, int width, int height, std::uint8_t bits) {
    for (int y = 1; y < height - 1; ++y) {
        const std::uint32_t* row = ids + static_cast<std::size_t>(y) * width;
        for (int x = 1; x < width - 1; ++x) {
            const std::uint32_t v = row[x];
            if ((v & 0xFFFF) == 0) continue;
            const std::uint32_t object = v >> 16, face = (v & 0xFFFF) - 1;
            if (object < faces_.size() && face < faces_[object].size()) faces_[object][face] |= bits;
        }
    }
}

int StreamRecorder::encode(std::vector<std::uint8_t>& faces, std::vector<std::uint8_t>& out) {
    int entries = 0;
    bool anyWritten = false;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        std::uint8_t& b = faces[i];
        const bool visible = b & visibleBit;
        if (visible != bool(b & writtenBit)) {
            put16(out, static_cast<std::uint16_t>(i));
            ++entries;
            b = visible ? b | writtenBit : b & ~writtenBit;
        }
        const bool second = b & secondBit;
        if ((b & writtenBit) && second != bool(b & writtenBit)) {
            put16(out, static_cast<std::uint16_t>(i + secondChannel));
            ++entries;
            b = second ? b | writtenBit : b & ~writtenBit;
        }
        b &= ~(visibleBit | secondBit);
        anyWritten |= (b & writtenBit) != 0;
    }
    if (entries > 0) return entries;
    return anyWritten ? 0 : -1;
}

void StreamRecorder::writeFrame(float time) {
    if (!file_) return;
    frame_.clear();
    put32(frame_, frameId);
    put32(frame_, 0);
    put32(frame_, floatBits(time));
    for (int object = 0; object < maxObjects; ++object) {
        if (faces_[object].empty()) continue;
        const std::size_t start = frame_.size();
        put32(frame_, objectId);
        put32(frame_, 0);
        put32(frame_, static_cast<std::uint32_t>(object));
        if (encode(faces_[object], frame_) < 0) {
            frame_.resize(start);
            continue;
        }
        set32(frame_, start + 4, static_cast<std::uint32_t>(frame_.size() - start));
    }
    set32(frame_, 4, static_cast<std::uint32_t>(frame_.size()));
    write();
    size_ += static_cast<std::uint32_t>(frame_.size());
    logout() << "Streamer: size of Frame = " << frame_.size() << lend;
}

void StreamRecorder::close() {
    if (!file_) return;
    frame_.clear();
    put32(frame_, size_);
    std::fseek(file_, 4, SEEK_SET);
    std::fwrite(frame_.data(), 1, 4, file_);
    std::fclose(file_);
    file_ = nullptr;
}

}  // namespace vz
