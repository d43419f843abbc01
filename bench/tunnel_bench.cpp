// Tunnel mapping against a plain copy of the same frame. Arguments: width, height.
// Each tunnel benchmark also times copyRun (normal) of the same frame in the same run
// and reports ns per pixel of the best frame of each and the ratio of the two.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "effects/tunnels/TunnelMapping.hpp"
#include "effects/tunnels/TunnelTables.hpp"

namespace {

using Clock = std::chrono::steady_clock;

struct Frame {
    Frame(int w, int h) : n(static_cast<std::size_t>(w) * h), table(n), dst(n), dst8(n), light(n), copySrc(n) {
        generateTable(w, h);
        std::mt19937 random(7);
        for (auto& t : texture) t = random();
        for (auto& t : texture8) t = static_cast<std::uint8_t>(random());
        for (auto& l : lut) l = random();
        for (std::size_t i = 0; i < n; ++i) {
            light[i] = static_cast<std::uint8_t>(random());
            copySrc[i] = random();
        }
    }
    void generateTable(int w, int h) {
        vz::generateTunnelTable({table.data(), w, h, w}, w / 2.0f, h / 2.0f, 1.0f, 16.0f * w, 4.0f);
    }
    // Seconds of one copyRun normal of the frame: the best of several.
    double copySeconds() {
        double best = 1e9;
        for (int rep = 0; rep < 20; ++rep) {
            const auto start = Clock::now();
            vz::copyRun(dst.data(), copySrc.data(), n, vz::renduNormal);
            benchmark::ClobberMemory();
            best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
        }
        return best;
    }
    std::size_t n;
    std::vector<std::uint32_t> table, dst;
    std::vector<std::uint8_t> dst8, light;
    std::vector<std::uint32_t> copySrc;
    std::vector<std::uint32_t> texture = std::vector<std::uint32_t>(65536);
    std::vector<std::uint8_t> texture8 = std::vector<std::uint8_t>(65536);
    std::vector<std::uint32_t> lut = std::vector<std::uint32_t>(65536);
};

// Runs `frame` in the benchmark loop, with the offset moving as a tunnel's does.
template <class FrameFn>
void measure(benchmark::State& state, FrameFn&& frameFn) {
    Frame f(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const double copy = f.copySeconds();
    std::uint32_t offset = 0;
    // Best frames on both sides: the machine is shared, and the best frame is the one
    // least disturbed by others.
    double perFrame = 1e9;
    for (auto _ : state) {
        const auto start = Clock::now();
        frameFn(f, offset);
        benchmark::ClobberMemory();
        perFrame = std::min(perFrame, std::chrono::duration<double>(Clock::now() - start).count());
        offset = (offset + 0x0103) & 0xFFFF;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * f.n));
    state.counters["ns_per_px"] = perFrame * 1e9 / static_cast<double>(f.n);
    state.counters["copy_ns_per_px"] = copy * 1e9 / static_cast<double>(f.n);
    state.counters["x_copy"] = perFrame / copy;
}

void BM_Tunnel32(benchmark::State& state) {
    measure(state, [](Frame& f, std::uint32_t offset) {
        vz::mapTunnel(f.dst.data(), f.table.data(), f.texture.data(), f.n, offset);
    });
}
void BM_Tunnel8(benchmark::State& state) {
    measure(state, [](Frame& f, std::uint32_t offset) {
        vz::mapTunnel(f.dst8.data(), f.table.data(), f.texture8.data(), f.n, offset);
    });
}
void BM_TunnelLit(benchmark::State& state) {
    measure(state, [](Frame& f, std::uint32_t offset) {
        vz::mapTunnelLit(f.dst.data(), f.table.data(), f.texture8.data(), f.light.data(), f.lut.data(), f.n, offset);
    });
}
void BM_CopyRunNormal(benchmark::State& state) {
    measure(state, [](Frame& f, std::uint32_t) { vz::copyRun(f.dst.data(), f.copySrc.data(), f.n, vz::renduNormal); });
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080})->UseRealTime(); }

BENCHMARK(BM_Tunnel32)->Apply(sizes);
BENCHMARK(BM_Tunnel8)->Apply(sizes);
BENCHMARK(BM_TunnelLit)->Apply(sizes);
BENCHMARK(BM_CopyRunNormal)->Apply(sizes);

}  // namespace
