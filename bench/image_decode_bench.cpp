// Decoding speed of the picture decoders on 1024 x 1024 pictures made here, against
// memcpy of the decoded bytes and, for GIF, against giflib.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "assets/decoders/BmpDecoder.hpp"
#include "assets/decoders/GifDecoder.hpp"
#include "assets/decoders/JpegDecoder.hpp"
#include "assets/decoders/PcxDecoder.hpp"
#include "tools/writers/BmpWriter.hpp"
#include "tools/writers/GifWriter.hpp"
#include "tools/writers/JpegWriter.hpp"
#include "tools/writers/PcxWriter.hpp"

#ifdef VZ_HAVE_GIFLIB
#include <gif_lib.h>
#endif

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int side = 1024;
constexpr std::int64_t pixelCount = std::int64_t{side} * side;

// A smooth plasma with a little noise: long runs in places, busy areas in others, the
// way demo pictures look.
const Bytes& pictureIndices() {
    static const Bytes indices = [] {
        Bytes out(static_cast<std::size_t>(pixelCount));
        unsigned seed = 7;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                seed = seed * 1103515245u + 12345u;
                double v = std::sin(x * 0.013) + std::sin(y * 0.021) + std::sin((x + y) * 0.007);
                int index = static_cast<int>((v + 3) * 40) + static_cast<int>((seed >> 16) % 3);
                out[static_cast<std::size_t>(y) * side + x] = static_cast<std::uint8_t>(index & 255);
            }
        return out;
    }();
    return indices;
}

// The picture's colours as 0x00RRGGBB.
std::vector<std::uint32_t> palette() {
    std::vector<std::uint32_t> p(256);
    for (std::uint32_t i = 0; i < 256; ++i) p[i] = i << 16 | (i * 3 & 255) << 8 | (255 - i);
    return p;
}

const vz::writers::IndexedPicture& picture() {
    static const vz::writers::IndexedPicture indexed(side, side, pictureIndices(), palette());
    return indexed;
}

// The picture through its palette, for the formats that store colours.
vz::writers::RgbPicture colourPicture() {
    const std::vector<std::uint32_t> colours = palette();
    std::vector<std::uint32_t> pixels;
    for (auto i : pictureIndices()) pixels.push_back(colours[i]);
    return {side, side, pixels};
}

const Bytes& gifFile() {
    static const Bytes file = vz::writers::encodeGif(picture());
    return file;
}

void report(benchmark::State& state, std::int64_t outputBytes, std::size_t fileBytes) {
    state.SetItemsProcessed(state.iterations() * pixelCount);
    state.SetBytesProcessed(state.iterations() * outputBytes);
    state.counters["file_KiB"] = static_cast<double>(fileBytes) / 1024.0;
}

void BM_Memcpy(benchmark::State& state) {
    const std::size_t bytes = static_cast<std::size_t>(state.range(0));
    std::vector<std::uint8_t> from(bytes, 1), to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * pixelCount);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}
BENCHMARK(BM_Memcpy)->Arg(pixelCount)->Arg(pixelCount * 4);

void BM_GifDecode(benchmark::State& state) {
    const Bytes& file = gifFile();
    std::vector<std::uint8_t> out(static_cast<std::size_t>(pixelCount));
    for (auto _ : state) {
        vz::GifImage image;
        if (vz::decodeGif(file, out.data(), out.size(), image) != vz::GifResult::ok)
            state.SkipWithError("decode failed");
        benchmark::DoNotOptimize(out.data());
    }
    if (out != pictureIndices()) state.SkipWithError("wrong pixels");
    report(state, pixelCount, file.size());
}
BENCHMARK(BM_GifDecode);

#ifdef VZ_HAVE_GIFLIB
struct MemoryInput {
    const Bytes* bytes;
    std::size_t position;
};

int readFromMemory(GifFileType* gif, GifByteType* into, int count) {
    auto* in = static_cast<MemoryInput*>(gif->UserData);
    std::size_t n = std::min<std::size_t>(static_cast<std::size_t>(count), in->bytes->size() - in->position);
    std::memcpy(into, in->bytes->data() + in->position, n);
    in->position += n;
    return static_cast<int>(n);
}

void BM_GifDecodeGiflib(benchmark::State& state) {
    const Bytes& file = gifFile();
    bool same = true;
    for (auto _ : state) {
        MemoryInput input{&file, 0};
        int error = 0;
        GifFileType* gif = DGifOpen(&input, readFromMemory, &error);
        if (!gif || DGifSlurp(gif) != GIF_OK) {
            state.SkipWithError("giflib failed");
            break;
        }
        benchmark::DoNotOptimize(gif->SavedImages[0].RasterBits);
        same = std::memcmp(gif->SavedImages[0].RasterBits, pictureIndices().data(), pictureIndices().size()) == 0;
        DGifCloseFile(gif, &error);
    }
    if (!same) state.SkipWithError("giflib disagrees with the picture");
    report(state, pixelCount, file.size());
}
BENCHMARK(BM_GifDecodeGiflib);
#endif

void BM_PcxDecode(benchmark::State& state) {
    static const Bytes file = vz::writers::encodePcx(picture());
    for (auto _ : state) {
        vz::IndexedPicture picture;
        if (vz::decodePcx(file, picture) != vz::DecodeStatus::ok) state.SkipWithError("decode failed");
        benchmark::DoNotOptimize(picture.indices.data());
    }
    report(state, pixelCount, file.size());
}
BENCHMARK(BM_PcxDecode);

void BM_BmpDecode(benchmark::State& state) {
    const int bits = static_cast<int>(state.range(0));
    const Bytes file =
        bits == 24 ? vz::writers::encodeBmp24(colourPicture()) : vz::writers::encodeBmpIndexed(picture(), 8);
    for (auto _ : state) {
        vz::BmpPicture picture;
        if (vz::decodeBmp(file, picture) != vz::DecodeStatus::ok) state.SkipWithError("decode failed");
        benchmark::DoNotOptimize(picture.pixels.data());
    }
    report(state, pixelCount * 4, file.size());
}
BENCHMARK(BM_BmpDecode)->Arg(8)->Arg(24);

void BM_JpegDecode(benchmark::State& state) {
    static const Bytes file = vz::writers::encodeJpeg(colourPicture(), 100, vz::writers::JpegColour::fullChroma);
    for (auto _ : state) {
        vz::JpegPicture picture;
        if (vz::decodeJpeg(file, picture) != vz::JpegResult::ok) state.SkipWithError("decode failed");
        benchmark::DoNotOptimize(picture.samples.data());
    }
    report(state, pixelCount * 3, file.size());
}
BENCHMARK(BM_JpegDecode);

}  // namespace
