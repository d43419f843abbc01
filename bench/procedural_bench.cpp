// The 2D procedural family against a plain frame copy. Arguments: width, height. Each
// benchmark builds its component from a script line, exactly as a demo does, and runs it
// at the times of a 50 frames-a-second show (the stateful effects step with that time);
// it reports ns per pixel of the best frame, those of copyRun "normal" of the same frame
// in the same process, and their ratio (x_copy). Items are target pixels.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/BenchStage.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"

namespace {

using Clock = std::chrono::steady_clock;

// A show holding the layers the script lines below name, all at the benchmark's size but
// the 256 x 256 texture and look-up table and the 64 x 64 sprite.
class Stage : public vz::bench::BenchStage {
public:
    Stage(int w, int h) : BenchStage("vz-procedural-bench") {
        std::mt19937 random(5);
        screen = &add32("screen", w, h, random);
        add32("pic", w, h, random);
        add32("tiles", 256, 256, random);
        add32("lut", 256, 256, random);
        add32("star", 64, 64, random);
        add8("screen8", w, h, random);
        add8("pic8", w, h, random);
        auto palette = std::make_unique<vz::Palette>();
        for (auto& c : palette->colors) c = random();
        addSymbol(std::move(palette), "pal");
        addSymbol(std::make_unique<vz::Color>(0x00C08040u), "col");
    }

    vz::Layer32bpp* screen = nullptr;

private:
    vz::Layer32bpp& add32(const std::string& name, int w, int h, std::mt19937& random) {
        auto layer = std::make_unique<vz::Layer32bpp>(w, h);
        std::generate_n(layer->pixels, layer->pixelCount(), [&] { return random() & 0xFFFFFF; });
        return addSymbol(std::move(layer), name);
    }
    // A smooth relief, hills a few dozen pixels across, as maps and reliefs of pictures are.
    void add8(const std::string& name, int w, int h, std::mt19937&) {
        auto layer = std::make_unique<vz::Layer8bpp>(w, h);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                layer->row(y)[x] = static_cast<std::uint8_t>(128 + 100 * std::sin(x / 23.0) * std::cos(y / 17.0));
        addSymbol(std::move(layer), name);
    }
};

double copySeconds(vz::Layer32bpp& screen) {
    std::vector<std::uint32_t> source(static_cast<std::size_t>(screen.pixelCount()), 0x00808080u);
    double best = 1e9;
    for (int rep = 0; rep < 30; ++rep) {
        const auto start = Clock::now();
        vz::copyRun(screen.pixels, source.data(), source.size(), vz::renduNormal);
        benchmark::ClobberMemory();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

void BM_Component(benchmark::State& state, const char* line) {
    Stage stage(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    auto component = stage.make(line);
    const double pixels = static_cast<double>(stage.screen->pixelCount());
    const double copy = copySeconds(*stage.screen);
    const double best = vz::bench::bestFrameSeconds(state, *component);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(pixels));
    state.counters["ns_per_px"] = best * 1e9 / pixels;
    state.counters["copy_ns_per_px"] = copy * 1e9 / pixels;
    state.counters["x_copy"] = best / copy;
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080})->UseRealTime(); }

#define VZ_BENCH_LINE(name, line) BENCHMARK_CAPTURE(BM_Component, name, line)->Apply(sizes);

VZ_BENCH_LINE(flowerPlasma, "flowerPlasma32bpp screen pal constFloat 1")
VZ_BENCH_LINE(rotozoom, "rotozoomKeytrack32bpp screen tiles constFloat 0.7 constFloat 1.5 constInt 32")
VZ_BENCH_LINE(rotozoom_add, "rotozoomKeytrack32bpp screen tiles constFloat 0.7 constFloat 1.5 constInt 33")
VZ_BENCH_LINE(sorbelFloor, "sorbelFloor32bpp screen tiles constFloat 40")
VZ_BENCH_LINE(sorbelWarperLight, "sorbelWarperLight32bpp screen pic8 lut constFloat 6")
VZ_BENCH_LINE(sorbelWarper, "sorbelWarper32bpp screen pic constFloat 6")
VZ_BENCH_LINE(displacement, "displacement32bpp screen pic pic8 constFloat 0.5")
VZ_BENCH_LINE(kestrilWarper, "kestrilWarper32bpp screen pic constFloat 8 constFloat 3")
VZ_BENCH_LINE(starFlower, "starFlower32bpp screen col constInt 33")
VZ_BENCH_LINE(circle, "circle32bpp screen col constVector2 0 0 constFloat 150")
VZ_BENCH_LINE(dashedCircle, "dashedCircle32bpp screen col constVector2 0 0 constFloat 150")
VZ_BENCH_LINE(shapeDisc, "shapeDisc32bpp screen col constVector2 0 0 constFloat 150 constInt 33")
VZ_BENCH_LINE(shapeCorona, "shapeCorona32bpp screen col constVector2 0 0 constFloat 150 constInt 33")
VZ_BENCH_LINE(glimmetDot, "glimmetDot32bpp screen col 500")
VZ_BENCH_LINE(glimmetSprite, "glimmetSprite32bpp screen star 50 constInt 33")
VZ_BENCH_LINE(dynamicSystem, "dynamicSystem32bpp screen col constInt 33")
VZ_BENCH_LINE(bumpLightmap, "bumpLightmap8bpp screen8 pic8 constVector2 0.2 -0.1")
VZ_BENCH_LINE(backSinus, "backSinus32bpp screen pal constFloat 1")
VZ_BENCH_LINE(sinusCircles, "sinusCircles32bpp screen pal constFloat 1")
VZ_BENCH_LINE(bigDiscs, "bigDiscs32bpp screen col constInt 33")
VZ_BENCH_LINE(rotatedSinusCircles, "rotatedSinusCircles32bpp screen pal constFloat 1 constFloat 0.5")
VZ_BENCH_LINE(fire, "fire8bpp screen8")

}  // namespace
