// Blend kernels against memcpy of the same bytes and, when available, pixman's
// compositing of the same pixels. Arguments: width, height (pixels per iteration).
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

#ifdef VZ_HAVE_PIXMAN
#include <pixman.h>
#endif

namespace {

using vz::BulkKernelSet;

struct Frame {
    explicit Frame(std::size_t n) : src(n), dst(n), alpha(n), indices(n), palette(256) {
        std::mt19937 random(42);
        for (std::size_t i = 0; i < n; ++i) {
            src[i] = random();
            dst[i] = random();
            indices[i] = static_cast<std::uint8_t>(random());
            // Alpha maps and sprites: transparent, opaque and ramps of soft edges, in bands.
            const unsigned kind = (i / 64) % 4;
            alpha[i] = static_cast<std::uint8_t>(kind == 0 ? 0 : kind == 3 ? (i % 64) / 2 : 32);
        }
        for (auto& colour : palette) colour = random();
        spriteSrc = src;
        for (std::size_t i = 0; i < n; ++i) spriteSrc[i] = (src[i] & 0xFFFFFF) | (std::uint32_t{alpha[i]} << 24);
    }
    std::vector<std::uint32_t> src, dst, spriteSrc;
    std::vector<std::uint8_t> alpha, indices;
    std::vector<std::uint32_t> palette;
};

std::size_t pixelsOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0) * state.range(1));
}

void finish(benchmark::State& state, std::size_t n) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(n));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(n) * 4);
}

// Kernel set by index: 0 scalar, 1 SSE2, 2 AVX2 (the active one when absent).
const BulkKernelSet& kernelSet(std::int64_t index) {
    if (index == 0) return vz::scalarKernels();
    if (index == 1) return vz::sse2Kernels();
    if (const BulkKernelSet* avx2 = vz::avx2Kernels()) return *avx2;
    return vz::activeKernels();
}

void BM_Memcpy(benchmark::State& state) {
    const std::size_t n = pixelsOf(state);
    Frame f(n);
    for (auto _ : state) {
        std::memcpy(f.dst.data(), f.src.data(), n * 4);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

void BM_CopyRendu(benchmark::State& state, int rendu) {
    const std::size_t n = pixelsOf(state);
    const BulkKernelSet& set = kernelSet(state.range(2));
    state.SetLabel(set.name);
    Frame f(n);
    for (auto _ : state) {
        set.copy(f.dst.data(), f.src.data(), n, rendu);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

void BM_FillNormal(benchmark::State& state) {
    const std::size_t n = pixelsOf(state);
    Frame f(n);
    for (auto _ : state) {
        vz::fillRun(f.dst.data(), 0x00336699, n, vz::renduNormal);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

void BM_Palette(benchmark::State& state) {
    const std::size_t n = pixelsOf(state);
    const BulkKernelSet& set = kernelSet(state.range(2));
    state.SetLabel(set.name);
    Frame f(n);
    for (auto _ : state) {
        set.copyPalette(f.dst.data(), f.indices.data(), f.palette.data(), n);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

void BM_AlphaMapCopy(benchmark::State& state) {
    const std::size_t n = pixelsOf(state);
    const BulkKernelSet& set = kernelSet(state.range(2));
    state.SetLabel(set.name);
    Frame f(n);
    for (auto _ : state) {
        set.copyAlphaMap(f.dst.data(), f.src.data(), f.alpha.data(), n);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

void BM_SourceAlphaCopy(benchmark::State& state) {
    const std::size_t n = pixelsOf(state);
    const BulkKernelSet& set = kernelSet(state.range(2));
    state.SetLabel(set.name);
    Frame f(n);
    for (auto _ : state) {
        set.copySourceAlpha(f.dst.data(), f.spriteSrc.data(), n);
        benchmark::ClobberMemory();
    }
    finish(state, n);
}

#ifdef VZ_HAVE_PIXMAN
struct PixmanImages {
    PixmanImages(Frame& f, int w, int h, pixman_format_code_t srcFormat)
        : src(pixman_image_create_bits(srcFormat, w, h, f.src.data(), w * 4)),
          dst(pixman_image_create_bits(PIXMAN_a8r8g8b8, w, h, f.dst.data(), w * 4)) {}
    ~PixmanImages() {
        pixman_image_unref(src);
        pixman_image_unref(dst);
        if (mask) pixman_image_unref(mask);
    }
    pixman_image_t* src;
    pixman_image_t* dst;
    pixman_image_t* mask = nullptr;
};

void BM_PixmanAdd(benchmark::State& state) {
    const int w = static_cast<int>(state.range(0));
    const int h = static_cast<int>(state.range(1));
    Frame f(pixelsOf(state));
    PixmanImages images(f, w, h, PIXMAN_a8r8g8b8);
    for (auto _ : state) {
        pixman_image_composite32(PIXMAN_OP_ADD, images.src, nullptr, images.dst, 0, 0, 0, 0, 0, 0, w, h);
        benchmark::ClobberMemory();
    }
    finish(state, pixelsOf(state));
}

// An opaque source OVER the destination through a solid mask of weight level/32: the
// nearest pixman counterpart of a blend level.
void BM_PixmanOverSolidMask(benchmark::State& state) {
    const int w = static_cast<int>(state.range(0));
    const int h = static_cast<int>(state.range(1));
    Frame f(pixelsOf(state));
    PixmanImages images(f, w, h, PIXMAN_x8r8g8b8);
    const pixman_color_t weight = {0, 0, 0, static_cast<std::uint16_t>(state.range(2) * 0x0800)};
    images.mask = pixman_image_create_solid_fill(&weight);
    for (auto _ : state) {
        pixman_image_composite32(PIXMAN_OP_OVER, images.src, images.mask, images.dst, 0, 0, 0, 0, 0, 0, w, h);
        benchmark::ClobberMemory();
    }
    finish(state, pixelsOf(state));
}

BENCHMARK(BM_PixmanAdd)->Args({640, 480})->Args({1920, 1080});
BENCHMARK(BM_PixmanOverSolidMask)
    ->Args({640, 480, 16})
    ->Args({1920, 1080, 16})
    ->Args({640, 480, 12})
    ->Args({1920, 1080, 12});
#endif

void sizes(benchmark::internal::Benchmark* b) {
    for (auto [w, h] : {std::pair{640, 480}, std::pair{1920, 1080}})
        for (int set = 0; set < 3; ++set) b->Args({w, h, set});
}

BENCHMARK(BM_Memcpy)->Args({640, 480})->Args({1920, 1080});
BENCHMARK(BM_FillNormal)->Args({640, 480})->Args({1920, 1080});
BENCHMARK_CAPTURE(BM_CopyRendu, normal, vz::renduNormal)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, add, vz::renduAdd)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, sub, vz::renduSub)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, level16, vz::renduGlenz50)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, level12, 12)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, level8, vz::renduGlenz25)->Apply(sizes);
BENCHMARK_CAPTURE(BM_CopyRendu, level29, 29)->Apply(sizes);
BENCHMARK(BM_Palette)->Apply(sizes);
BENCHMARK(BM_AlphaMapCopy)->Apply(sizes);
BENCHMARK(BM_SourceAlphaCopy)->Apply(sizes);

}  // namespace
