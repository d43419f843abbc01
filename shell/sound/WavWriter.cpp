#include "shell/sound/WavWriter.hpp"

#include "core/error.hpp"

namespace vz {

namespace {

constexpr std::uint32_t headerBytes = 44;
constexpr std::uint32_t maxDataBytes = 0xFFFFFFFFu - headerBytes;

void put16(std::uint8_t*& p, std::uint32_t v) {
    *p++ = static_cast<std::uint8_t>(v);
    *p++ = static_cast<std::uint8_t>(v >> 8);
}

void put32(std::uint8_t*& p, std::uint32_t v) {
    put16(p, v & 0xFFFF);
    put16(p, v >> 16);
}

void putTag(std::uint8_t*& p, const char* tag) {
    for (int i = 0; i < 4; ++i) *p++ = static_cast<std::uint8_t>(tag[i]);
}

}  // namespace

WavWriter::~WavWriter() {
    try {
        close();
    } catch (const error&) {
        // Nothing more can be done for the file while unwinding.
    }
}

void WavWriter::open(const std::string& path, int rate, int channels) {
    close();
    file_ = std::fopen(path.c_str(), "wb");
    if (!file_) throw error("cannot write " + path);
    path_ = path;
    rate_ = rate;
    channels_ = channels;
    dataBytes_ = 0;
    writeHeader(0);
}

void WavWriter::writeHeader(std::uint32_t dataBytes) {
    std::uint8_t header[headerBytes];
    std::uint8_t* p = header;
    const std::uint32_t blockAlign = static_cast<std::uint32_t>(channels_) * 2;
    putTag(p, "RIFF");
    put32(p, headerBytes - 8 + dataBytes);
    putTag(p, "WAVE");
    putTag(p, "fmt ");
    put32(p, 16);
    put16(p, 1);  // PCM
    put16(p, static_cast<std::uint32_t>(channels_));
    put32(p, static_cast<std::uint32_t>(rate_));
    put32(p, static_cast<std::uint32_t>(rate_) * blockAlign);
    put16(p, blockAlign);
    put16(p, 16);
    putTag(p, "data");
    put32(p, dataBytes);
    std::fseek(file_, 0, SEEK_SET);
    std::fwrite(header, 1, headerBytes, file_);
}

void WavWriter::append(const std::int16_t* samples, std::size_t count) {
    if (!file_) return;
    std::size_t room = (maxDataBytes - dataBytes_) / 2;
    if (count > room) count = room - room % static_cast<std::size_t>(channels_);
    bytes_.resize(count * 2);
    std::vector<std::uint8_t>& bytes = bytes_;
    for (std::size_t i = 0; i < count; ++i) {
        auto v = static_cast<std::uint16_t>(samples[i]);
        bytes[2 * i] = static_cast<std::uint8_t>(v);
        bytes[2 * i + 1] = static_cast<std::uint8_t>(v >> 8);
    }
    std::fwrite(bytes.data(), 1, bytes.size(), file_);
    dataBytes_ += static_cast<std::uint32_t>(bytes.size());
}

void WavWriter::close() {
    if (!file_) return;
    writeHeader(dataBytes_);
    bool failed = std::ferror(file_) != 0;
    failed = std::fclose(file_) != 0 || failed;
    file_ = nullptr;
    if (failed) throw error("cannot write " + path_);
}

}  // namespace vz
