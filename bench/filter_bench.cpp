// Blurs and the feedback zoom against memcpy and copyRun "normal" of the same frame.
// Arguments: width, height (and the radius for the box blurs). Items are pixels.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "effects/filters/BoxBlur.hpp"
#include "effects/filters/NeighbourBlur.hpp"
#include "effects/filters/ScaledDraw.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace {

struct Frame {
    Frame(int w, int h) : width(w), height(h), src(w, h), dst(w, h) {
        std::mt19937 random(42);
        for (std::int64_t i = 0; i < src.pixelCount(); ++i) src.pixels[i] = random();
    }
    std::size_t pixels() const { return static_cast<std::size_t>(width) * height; }
    int width, height;
    vz::Layer32bpp src, dst;
};

void finish(benchmark::State& state, std::size_t n) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(n));
}

void BM_Memcpy(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        std::memcpy(f.dst.pixels, f.src.pixels, f.pixels() * 4);
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

void BM_CopyRunNormal(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        vz::copyRun(f.dst.pixels, f.src.pixels, f.pixels(), vz::renduNormal);
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

// One run of the component: the table rebuilt, then the blur.
void BM_HBlur(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int n = static_cast<int>(state.range(2));
    vz::BoxBlurTable table;
    for (auto _ : state) {
        table.build(n);
        vz::boxBlurRows(f.dst.pixels, f.src.pixels, f.width, f.height, n, table.entries());
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

void BM_VBlur(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int n = static_cast<int>(state.range(2));
    vz::BoxBlurTable table;
    std::vector<std::int32_t> sums(3 * static_cast<std::size_t>(f.width));
    for (auto _ : state) {
        table.build(n);
        vz::boxBlurColumns(f.dst.pixels, f.src.pixels, f.width, f.height, n, table.entries(), sums.data());
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

// The plain column walk the sweep replaces, for comparison.
void BM_VBlurColumnWalk(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int n = static_cast<int>(state.range(2));
    vz::BoxBlurTable table;
    for (auto _ : state) {
        table.build(n);
        for (int x = 0; x < f.width; ++x)
            vz::boxBlurLine(f.dst.pixels + x, f.src.pixels + x, f.height, f.width, n, table.entries());
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

void BM_FourNeighbourBlur(benchmark::State& state) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        vz::fourNeighbourBlur(f.dst.pixels, f.src.pixels, f.width, f.height);
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

// One run of the feedback zoom: a temporary layer, the copy, the scaled draw back.
void BM_Zoom(benchmark::State& state, int rendu) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        auto copy = std::make_unique<vz::Layer32bpp>(f.width, f.height);
        vz::copyRun(copy->pixels, f.src.pixels, f.pixels(), vz::renduNormal);
        vz::drawScaled(f.src, *copy, 0.0f, 0.0f, 1.05f, 1.05f, rendu);
        benchmark::ClobberMemory();
    }
    finish(state, f.pixels());
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080}); }

void sizesAndRadii(benchmark::internal::Benchmark* b) {
    for (int n : {1, 8, 64}) b->Args({640, 480, n})->Args({1920, 1080, n});
}

}  // namespace

BENCHMARK(BM_Memcpy)->Apply(sizes);
BENCHMARK(BM_CopyRunNormal)->Apply(sizes);
BENCHMARK(BM_HBlur)->Apply(sizesAndRadii);
BENCHMARK(BM_VBlur)->Apply(sizesAndRadii);
BENCHMARK(BM_VBlurColumnWalk)->Apply(sizesAndRadii);
BENCHMARK(BM_FourNeighbourBlur)->Apply(sizes);
BENCHMARK_CAPTURE(BM_Zoom, normal, vz::renduNormal)->Apply(sizes);
BENCHMARK_CAPTURE(BM_Zoom, glenz50, vz::renduGlenz50)->Apply(sizes);
