#include "PictureWriters.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace vz::test {

namespace {

std::uint8_t low8(std::uint32_t v) { return static_cast<std::uint8_t>(v); }

void put16(Bytes& out, unsigned v) {
    out.push_back(low8(v));
    out.push_back(low8(v >> 8));
}

void put32(Bytes& out, std::uint32_t v) {
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

void putRgb(Bytes& out, Rgb c) {
    for (int shift : {16, 8, 0}) out.push_back(low8(c >> shift));
}

// Codes are packed least significant bit first; the width grows when the next free code
// no longer fits, and a full dictionary is restarted with a clear code.
Bytes lzwCodes(const Bytes& indices, int minimumCodeSize) {
    const unsigned clear = 1u << minimumCodeSize;
    std::vector<std::uint16_t> child(4096 * 256, 0);  // (code, byte) -> code; 0 = none
    Bytes out;
    std::uint64_t bits = 0;
    int count = 0;
    int width = minimumCodeSize + 1;
    unsigned next = clear + 2;
    auto put = [&](unsigned code) {
        bits |= static_cast<std::uint64_t>(code) << count;
        for (count += width; count >= 8; count -= 8, bits >>= 8) out.push_back(low8(bits));
    };
    auto putAndGrow = [&](unsigned code) {
        put(code);
        if (next == (1u << width) && width < 12) ++width;
    };
    put(clear);
    if (!indices.empty()) {
        unsigned prefix = indices[0];
        for (std::size_t i = 1; i < indices.size(); ++i) {
            const std::uint8_t c = indices[i];
            if (std::uint16_t known = child[prefix * 256 + c]) {
                prefix = known;
                continue;
            }
            putAndGrow(prefix);
            if (next < 4096) {
                child[prefix * 256 + c] = static_cast<std::uint16_t>(next++);
            } else {
                put(clear);
                std::fill(child.begin(), child.end(), 0);
                width = minimumCodeSize + 1;
                next = clear + 2;
            }
            prefix = c;
        }
        putAndGrow(prefix);
    }
    put(clear + 1);
    if (count > 0) out.push_back(low8(bits));
    return out;
}

Bytes bmpHeaders(int bitCount, int width, int height, std::uint32_t compression, const std::vector<Rgb>& table,
                 std::size_t dataSize) {
    const auto entries = static_cast<std::uint32_t>(table.size());
    const std::uint32_t offset = 54 + entries * 4, size = static_cast<std::uint32_t>(dataSize);
    Bytes out = {'B', 'M'};
    for (std::uint32_t v : {offset + size, 0u, offset, 40u}) put32(out, v);
    put32(out, static_cast<std::uint32_t>(width));
    put32(out, static_cast<std::uint32_t>(height));
    put16(out, 1);
    put16(out, static_cast<unsigned>(bitCount));
    for (std::uint32_t v : {compression, size, 2835u, 2835u, entries, 0u}) put32(out, v);
    for (Rgb c : table) put32(out, c & 0xFFFFFF);  // blue, green, red, 0
    return out;
}

std::size_t paddedRow(std::size_t bytes) { return (bytes + 3) & ~std::size_t{3}; }

}  // namespace

Bytes makePcx(int width, int height, const Bytes& indices, const std::array<Rgb, 256>& palette) {
    Bytes out = {10, 5, 1, 8, 0, 0, 0, 0};
    put16(out, static_cast<unsigned>(width - 1));
    put16(out, static_cast<unsigned>(height - 1));
    out.resize(128, 0);
    out[65] = 1;
    for (std::size_t i = 0; i < indices.size();) {
        std::size_t run = 1;
        while (i + run < indices.size() && run < 63 && indices[i + run] == indices[i]) ++run;
        if (run > 1 || indices[i] >= 0xC0) out.push_back(low8(0xC0 | run));
        out.push_back(indices[i]);
        i += run;
    }
    out.push_back(12);
    for (Rgb c : palette) putRgb(out, c);
    return out;
}

Bytes gifImageData(const Bytes& indices, int minimumCodeSize) {
    const Bytes codes = lzwCodes(indices, minimumCodeSize);
    Bytes out;
    for (std::size_t i = 0; i < codes.size(); i += 255) {
        const std::size_t n = std::min<std::size_t>(255, codes.size() - i);
        out.push_back(low8(n));
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
    out.insert(out.end(), {low8(layout.globalTableEntries ? 0xF0 | sizeBits : 0x70), 0, 0});
    for (int i = 0; i < layout.globalTableEntries; ++i) putRgb(out, i < static_cast<int>(table.size()) ? table[i] : 0);
    // A graphic control extension, which the reader skips, then the image descriptor.
    out.insert(out.end(), {0x21, 0xF9, 4, 0, 0, 0, 0, 0, 0x2C, 0, 0, 0, 0});
    put16(out, static_cast<unsigned>(width));
    put16(out, static_cast<unsigned>(height));
    out.insert(out.end(), {low8(layout.interlaced ? 0x40 : 0), low8(layout.minimumCodeSize)});
    const Bytes data = gifImageData(indices, layout.minimumCodeSize);
    out.insert(out.end(), data.begin(), data.end());
    out.push_back(0x3B);
    return out;
}

Bytes makeBmp24(int width, int height, const std::vector<Rgb>& pixels) {
    const std::size_t row = paddedRow(static_cast<std::size_t>(width) * 3);
    Bytes out = bmpHeaders(24, width, height, 0, {}, row * height);
    for (int y = height - 1; y >= 0; --y) {
        const std::size_t start = out.size();
        for (int x = 0; x < width; ++x) {
            const Rgb c = pixels[static_cast<std::size_t>(y * width + x)];
            out.insert(out.end(), {low8(c), low8(c >> 8), low8(c >> 16)});
        }
        out.resize(start + row, 0);
    }
    return out;
}

Bytes makeBmpIndexed(int bitCount, int width, int height, const Bytes& indices, const std::vector<Rgb>& table) {
    const std::size_t row = paddedRow((static_cast<std::size_t>(width) * bitCount + 7) / 8);
    Bytes out = bmpHeaders(bitCount, width, height, 0, table, row * height);
    for (int y = height - 1; y >= 0; --y) {
        Bytes packed(row, 0);
        for (int x = 0; x < width; ++x) {
            const int bit = x * bitCount;
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
        const std::size_t at = static_cast<std::size_t>(info.next_scanline) * width * channels;
        JSAMPROW row = const_cast<std::uint8_t*>(samples.data()) + at;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    Bytes out(buffer, buffer + size);
    std::free(buffer);
    return out;
}

}  // namespace vz::test
