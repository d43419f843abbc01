#include "engine3d/stream/StreamPlayer.hpp"

#include "assets/File.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "engine3d/stream/SceneStream.hpp"

namespace vz {

using namespace stream;

namespace {

const char* const badFormat = "loading of streaming : bad file format";

}  // namespace

StreamPlayer::StreamPlayer(const std::string& fileName) {
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readWholeFile(fileName, bytes, why))
        fatal("loading of streaming : file not found", "loading of streaming : file not found", fileName + ": " + why);
    if (bytes.size() < static_cast<std::size_t>(headerSize)) fatal(fileName + " : the header is cut short", badFormat);
    if (static_cast<std::int32_t>(get32(bytes.data())) != magic) fatal(badFormat);
    const std::uint32_t total = get32(bytes.data() + 4);
    if (total < headerSize + chunkHeaderSize || total > bytes.size())
        fatal(
            fileName + " : its size says " + std::to_string(total) + " bytes, it holds " + std::to_string(bytes.size()),
            badFormat);
    for (int i = 0; i < maxObjects; ++i) {
        const std::uint32_t count = get32(bytes.data() + 8 + 4 * i);
        if (count > static_cast<std::uint32_t>(maxFaces))
            fatal(fileName + " : object " + std::to_string(i) + " has " + std::to_string(count) + " faces", badFormat);
        faces_[i].assign(count, 0);
    }
    data_.assign(bytes.begin() + headerSize, bytes.begin() + total);
    check(fileName);
}

// Every chunk size and entry is checked once here, so that advancing never reads or
// writes outside the data or a visibility buffer.
void StreamPlayer::check(const std::string& fileName) const {
    auto fail = [&](std::size_t at, const std::string& what) {
        fatal(fileName + " : byte " + std::to_string(at + headerSize) + " : " + what, badFormat);
    };
    for (std::size_t frame = 0; frame < data_.size();) {
        if (data_.size() - frame < chunkHeaderSize) fail(frame, "a frame is cut short");
        const std::uint32_t size = get32(&data_[frame + 4]);
        if (size < chunkHeaderSize || size > data_.size() - frame)
            fail(frame, "the frame size " + std::to_string(size) + " does not fit");
        for (std::size_t at = frame + chunkHeaderSize; at < frame + size;) {
            if (frame + size - at < chunkHeaderSize) fail(at, "an object chunk is cut short");
            const std::uint32_t objectSize = get32(&data_[at + 4]);
            if (objectSize < chunkHeaderSize || objectSize > frame + size - at || objectSize % 2 != 0)
                fail(at, "the object chunk size " + std::to_string(objectSize) + " does not fit");
            const std::uint32_t object = get32(&data_[at + 8]);
            if (object >= static_cast<std::uint32_t>(maxObjects))
                fail(at, "object " + std::to_string(object) + " is no object");
            for (std::size_t e = at + chunkHeaderSize; e < at + objectSize; e += 2) {
                const std::uint16_t entry = get16(&data_[e]);
                if ((entry % secondChannel) >= faces_[object].size())
                    fail(e, "face " + std::to_string(entry % secondChannel) + " of object " + std::to_string(object) +
                                " does not exist");
            }
            at += objectSize;
        }
        frame += size;
    }
}

void StreamPlayer::apply(std::size_t frame) {
    const std::uint32_t id = get32(&data_[frame]);
    if (id != static_cast<std::uint32_t>(frameId)) logout() << "chunkIdFrame = " << id << lend;
    touched_.fill(false);
    const std::size_t end = frame + get32(&data_[frame + 4]);
    for (std::size_t at = frame + chunkHeaderSize; at < end;) {
        const std::uint32_t objectChunk = get32(&data_[at]);
        if (objectChunk != static_cast<std::uint32_t>(objectId)) logout() << "chunkIdObject = " << objectChunk << lend;
        const std::uint32_t size = get32(&data_[at + 4]);
        const std::uint32_t object = get32(&data_[at + 8]);
        touched_[object] = true;
        std::vector<std::uint8_t>& faces = faces_[object];
        for (std::size_t e = at + chunkHeaderSize; e < at + size; e += 2) {
            const std::uint16_t entry = get16(&data_[e]);
            if (entry < secondChannel)
                faces[entry] ^= visibleBit;
            else
                faces[entry - secondChannel] ^= secondBit;
        }
        at += size;
    }
}

void StreamPlayer::advance(float time) {
    while (getFloat(&data_[current_ + 8]) < time) {
        const std::size_t next = current_ + get32(&data_[current_ + 4]);
        if (next >= data_.size()) return;  // past the last sample: its state holds
        current_ = next;
        apply(current_);
    }
}

}  // namespace vz
