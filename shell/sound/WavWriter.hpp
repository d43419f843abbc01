#pragma once
// Writes 16-bit PCM to a WAV file as it comes; the sizes in the header are filled in
// when the file is closed.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace vz {

class WavWriter {
public:
    WavWriter() = default;
    ~WavWriter();
    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    void open(const std::string& path, int rate, int channels);  // throws error
    // `count` interleaved samples (frames × channels). Samples beyond the 4 GB that
    // the format can describe are dropped.
    void append(const std::int16_t* samples, std::size_t count);
    void close();  // throws error when the file cannot be completed
    bool isOpen() const { return file_ != nullptr; }

private:
    void writeHeader(std::uint32_t dataBytes);

    std::FILE* file_ = nullptr;
    std::string path_;
    int rate_ = 0;
    int channels_ = 0;
    std::uint32_t dataBytes_ = 0;
    std::vector<std::uint8_t> bytes_;  // little-endian copy of the samples being written
};

}  // namespace vz
