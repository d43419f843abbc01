#include "PictureWriters.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace vz::test {

namespace {

void put16(Bytes& out, unsigned v) {
    out.push_back(static_cast<std::uint8_t>(v));
    out.push_back(static_cast<std::uint8_t>(v >> 8));
}

void put32(Bytes& out, std::uint32_t v) {
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

void putRgb(Bytes& out, Rgb c) {
    out.push_back(static_cast<std::uint8_t>(c >> 16));
    out.push_back(static_cast<std::uint8_t>(c >> 8));
    out.push_back(static_cast<std::uint8_t>(c));
}

class BitWriter {
public:
    void put(unsigned code, int width) {
        bits_ |= static_cast<std::uint64_t>(code) << count_;
        count_ += width;
        while (count_ >= 8) flushByte();
    }
    Bytes finish() {
        while (count_ > 0) flushByte();
        return std::move(bytes_);
    }

private:
    void flushByte() {
        bytes_.push_back(static_cast<std::uint8_t>(bits_));
        bits_ >>= 8;
        count_ = count_ > 8 ? count_ - 8 : 0;
    }
    Bytes bytes_;
    std::uint64_t bits_ = 0;
    int count_ = 0;
};

Bytes lzwCodes(const Bytes& indices, int minimumCodeSize) {
    const unsigned clear = 1u << minimumCodeSize;
    std::vector<std::uint16_t> child(4096 * 256, 0);  // (code, byte) -> code; 0 = none
    BitWriter out;
    int width = minimumCodeSize + 1;
    unsigned next = clear + 2;
    out.put(clear, width);
    if (indices.empty()) {
        out.put(clear + 1, width);
        return out.finish();
    }
    unsigned prefix = indices[0];
    for (std::size_t i = 1; i < indices.size(); ++i) {
        std::uint8_t c = indices[i];
        if (std::uint16_t known = child[prefix * 256 + c]) {
            prefix = known;
            continue;
        }
        out.put(prefix, width);
        if (next == (1u << width) && width < 12) ++width;
        if (next < 4096) {
            child[prefix * 256 + c] = static_cast<std::uint16_t>(next++);
        } else {
            out.put(clear, width);
            std::fill(child.begin(), child.end(), 0);
            width = minimumCodeSize + 1;
            next = clear + 2;
        }
        prefix = c;
    }
    out.put(prefix, width);
    if (next == (1u << width) && width < 12) ++width;
    out.put(clear + 1, width);
    return out.finish();
}

}  // namespace

Bytes makePcx(int width, int height, const Bytes& indices, const std::array<Rgb, 256>& palette) {
    Bytes out(128, 0);
    out[0] = 10;
    out[1] = 5;
    out[2] = 1;
    out[3] = 8;
    out[8] = static_cast<std::uint8_t>(width - 1);
    out[9] = static_cast<std::uint8_t>((width - 1) >> 8);
    out[10] = static_cast<std::uint8_t>(height - 1);
    out[11] = static_cast<std::uint8_t>((height - 1) >> 8);
    out[65] = 1;
    for (std::size_t i = 0; i < indices.size();) {
        std::size_t run = 1;
        while (i + run < indices.size() && run < 63 && indices[i + run] == indices[i]) ++run;
        if (run > 1 || indices[i] >= 0xC0) out.push_back(static_cast<std::uint8_t>(0xC0 | run));
        out.push_back(indices[i]);
        i += run;
    }
    out.push_back(12);
    for (Rgb c : palette) putRgb(out, c);
    return out;
}

Bytes gifImageData(const Bytes& indices, int minimumCodeSize) {
    Bytes codes = lzwCodes(indices, minimumCodeSize);
    Bytes out;
    for (std::size_t i = 0; i < codes.size(); i += 255) {
        std::size_t n = std::min<std::size_t>(255, codes.size() - i);
        out.push_back(static_cast<std::uint8_t>(n));
        out.insert(out.end(), codes.begin() + static_cast<long>(i), codes.begin() + static_cast<long>(i + n));
    }
    out.push_back(0);
    return out;
}

Bytes makeGif(int width, int height, const Bytes& indices, const std::vector<Rgb>& table, const GifLayout& layout) {
    Bytes out = {'G', 'I', 'F', '8', '9', 'a'};
    put16(out, layout.screenWidth ? layout.screenWidth : width);
    put16(out, layout.screenHeight ? layout.screenHeight : height);
    int sizeBits = 0;
    while (layout.globalTableEntries > (2 << sizeBits)) ++sizeBits;
    out.push_back(static_cast<std::uint8_t>(layout.globalTableEntries ? 0x80 | 0x70 | sizeBits : 0x70));
    out.push_back(0);
    out.push_back(0);
    for (int i = 0; i < layout.globalTableEntries; ++i) putRgb(out, i < static_cast<int>(table.size()) ? table[i] : 0);
    // A graphic control extension, which the reader skips.
    out.insert(out.end(), {0x21, 0xF9, 4, 0, 0, 0, 0, 0});
    out.push_back(0x2C);
    put16(out, 0);
    put16(out, 0);
    put16(out, width);
    put16(out, height);
    out.push_back(layout.interlaced ? 0x40 : 0);
    out.push_back(static_cast<std::uint8_t>(layout.minimumCodeSize));
    Bytes data = gifImageData(indices, layout.minimumCodeSize);
    out.insert(out.end(), data.begin(), data.end());
    out.push_back(0x3B);
    return out;
}

namespace {

Bytes bmpHeaders(int bitCount, int width, int height, std::uint32_t compression, const std::vector<Rgb>& table,
                 std::size_t dataSize) {
    std::uint32_t offset = 54 + static_cast<std::uint32_t>(table.size()) * 4;
    Bytes out = {'B', 'M'};
    put32(out, offset + static_cast<std::uint32_t>(dataSize));
    put32(out, 0);
    put32(out, offset);
    put32(out, 40);
    put32(out, static_cast<std::uint32_t>(width));
    put32(out, static_cast<std::uint32_t>(height));
    put16(out, 1);
    put16(out, static_cast<unsigned>(bitCount));
    put32(out, compression);
    put32(out, static_cast<std::uint32_t>(dataSize));
    put32(out, 2835);
    put32(out, 2835);
    put32(out, static_cast<std::uint32_t>(table.size()));
    put32(out, 0);
    for (Rgb c : table) {
        put16(out, c & 0xFFFF);
        put16(out, (c >> 16) & 0xFF);
    }
    return out;
}

std::size_t paddedRow(std::size_t bytes) { return (bytes + 3) & ~std::size_t{3}; }

}  // namespace

Bytes makeBmp24(int width, int height, const std::vector<Rgb>& pixels) {
    std::size_t row = paddedRow(static_cast<std::size_t>(width) * 3);
    Bytes out = bmpHeaders(24, width, height, 0, {}, row * height);
    for (int y = height - 1; y >= 0; --y) {
        std::size_t start = out.size();
        for (int x = 0; x < width; ++x) {
            Rgb c = pixels[static_cast<std::size_t>(y * width + x)];
            out.insert(out.end(), {static_cast<std::uint8_t>(c), static_cast<std::uint8_t>(c >> 8),
                                   static_cast<std::uint8_t>(c >> 16)});
        }
        out.resize(start + row, 0);
    }
    return out;
}

Bytes makeBmpIndexed(int bitCount, int width, int height, const Bytes& indices, const std::vector<Rgb>& table) {
    std::size_t row = paddedRow((static_cast<std::size_t>(width) * bitCount + 7) / 8);
    Bytes out = bmpHeaders(bitCount, width, height, 0, table, row * height);
    for (int y = height - 1; y >= 0; --y) {
        Bytes packed(row, 0);
        for (int x = 0; x < width; ++x) {
            int bit = x * bitCount;
            packed[static_cast<std::size_t>(bit / 8)] |=
                static_cast<std::uint8_t>(indices[static_cast<std::size_t>(y * width + x)] << (8 - bitCount - bit % 8));
        }
        out.insert(out.end(), packed.begin(), packed.end());
    }
    return out;
}

Bytes makeBmpRle(int bitCount, int width, int height, const Bytes& data, const std::vector<Rgb>& table) {
    Bytes out = bmpHeaders(bitCount, width, height, bitCount == 8 ? 1 : 2, table, data.size());
    out.insert(out.end(), data.begin(), data.end());
    return out;
}

Bytes makeJpeg(int width, int height, int channels, const Bytes& samples) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &buffer, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = channels;
    info.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    for (int i = 0; i < info.num_components; ++i) info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = const_cast<std::uint8_t*>(samples.data()) +
                       static_cast<std::size_t>(info.next_scanline) * width * channels;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    Bytes out(buffer, buffer + size);
    std::free(buffer);
    return out;
}

}  // namespace vz::test
