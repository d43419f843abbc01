// Tiled copies (the random-offset and wrap-around components) and film-strip frames
// against a plain copyRun of the same frame. Arguments: width, height of the target.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <type_traits>

#include "effects/layers/Tiling.hpp"
#include "effects/layers/Videos.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace {

using namespace vz;

template <class L>
void randomise(L& layer) {
    std::mt19937 random(7);
    using Pixel = std::remove_pointer_t<decltype(layer.pixels)>;
    for (std::int64_t i = 0; i < layer.pixelCount(); ++i) layer.pixels[i] = static_cast<Pixel>(random());
}

int width(const benchmark::State& state) { return static_cast<int>(state.range(0)); }
int height(const benchmark::State& state) { return static_cast<int>(state.range(1)); }

void finish(benchmark::State& state) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * width(state) * height(state));
}

void BM_Memcpy(benchmark::State& state) {
    Layer32bpp target(width(state), height(state)), source(width(state), height(state));
    randomise(source);
    for (auto _ : state) {
        std::memcpy(target.pixels, source.pixels, static_cast<std::size_t>(target.pixelCount()) * 4);
        benchmark::ClobberMemory();
    }
    finish(state);
}

void BM_CopyRunNormal(benchmark::State& state) {
    Layer32bpp target(width(state), height(state)), source(width(state), height(state));
    randomise(source);
    for (auto _ : state) {
        copyRun(target.pixels, source.pixels, static_cast<std::size_t>(target.pixelCount()), renduNormal);
        benchmark::ClobberMemory();
    }
    finish(state);
}

// A 256 x 256 tile at an offset that cuts every tile row in two pieces.
void BM_Tiles32(benchmark::State& state) {
    Layer32bpp target(width(state), height(state)), tile(256, 256);
    randomise(tile);
    const int rendu = static_cast<int>(state.range(2));
    for (auto _ : state) {
        drawTiles(target, tile, -37, -91, rendu);
        benchmark::ClobberMemory();
    }
    finish(state);
}

void BM_TilesBitmap(benchmark::State& state) {
    Layer32bpp target(width(state), height(state));
    Layer8bpp tile(256, 256);
    randomise(tile);
    Palette palette;
    for (std::uint32_t i = 0; i < 256; ++i) palette.colors[i] = i * 0x010203u;
    for (auto _ : state) {
        drawTiles(target, tile, palette, -37, -91);
        benchmark::ClobberMemory();
    }
    finish(state);
}

// Frame 2 of a strip of 4 frames of the target's size.
void BM_VideoFrame32(benchmark::State& state) {
    Layer32bpp target(width(state), height(state)), film(width(state), height(state) * 4);
    randomise(film);
    const FilmStrip strip(film, 4);
    for (auto _ : state) {
        playFrame(target, film, strip, 2, renduNormal);
        benchmark::ClobberMemory();
    }
    finish(state);
}

void BM_VideoFrameBitmap(benchmark::State& state) {
    Layer32bpp target(width(state), height(state));
    Layer8bpp film(width(state), height(state) * 4);
    randomise(film);
    Palette palette;
    const FilmStrip strip(film, 4);
    for (auto _ : state) {
        playFrame(target, film, palette.colors.data(), strip, 2);
        benchmark::ClobberMemory();
    }
    finish(state);
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080}); }
void sizesAndRendu(benchmark::internal::Benchmark* b) {
    for (int rendu : {renduNormal, renduAdd, renduGlenz50})
        for (auto [w, h] : {std::pair{640, 480}, std::pair{1920, 1080}}) b->Args({w, h, rendu});
}

BENCHMARK(BM_Memcpy)->Apply(sizes);
BENCHMARK(BM_CopyRunNormal)->Apply(sizes);
BENCHMARK(BM_Tiles32)->Apply(sizesAndRendu);
BENCHMARK(BM_TilesBitmap)->Apply(sizes);
BENCHMARK(BM_VideoFrame32)->Apply(sizes);
BENCHMARK(BM_VideoFrameBitmap)->Apply(sizes);

}  // namespace
