// The model modifiers and the procedural 3D effects. Each benchmark builds its component
// from a script line, as a demo does, and runs it at the times of a 50 frames-a-second
// show; it reports the frames per second of the best frame (fps) and ns per target pixel.
// The effects draw into a target of the benchmark's size and its z-buffer, neither
// cleared nor stamped anew between frames (each frame is tested against the depths of
// the one before, which are those of a nearly equal picture); the modifiers work on the
// sample demo's 294-vertex grid cube, whatever the size.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "bench/BenchStage.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "engine3d/MeshPreparation.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "engine3d/procedural/Metaballs.hpp"
#include "script/Material.hpp"

namespace {

class Stage : public vz::bench::BenchStage {
public:
    Stage(int w, int h) : BenchStage("vz-models3d-bench") {
        std::mt19937 random(5);
        auto screen = std::make_unique<vz::Layer32bpp>(w, h);
        addSymbol(std::move(screen), "screen");
        addSymbol(std::make_unique<vz::Zbuffer>(w, h), "z");
        auto sprite = std::make_unique<vz::Layer32bpp>(64, 64);
        for (std::int64_t i = 0; i < sprite->pixelCount(); ++i) sprite->pixels[i] = random() & 0xFFFFFF;
        addSymbol(std::move(sprite), "star");
        auto palette = std::make_unique<vz::Palette>();
        for (auto& c : palette->colors) c = random() & 0xFFFFFF;
        addSymbol(std::move(palette), "pal");
        auto material = std::make_shared<vz::Material>();
        material->color = 0x00C08040;
        material->id = 6;  // gouraud: the dearest of the 32-bit fillers that need no texture
        auto named = std::make_unique<vz::Material>();
        named->color = material->color;
        named->id = material->id;
        addSymbol(std::move(named), "mat");
        for (const char* name : {"cube", "dice", "spiky"}) {
            auto mesh = vz::GenModels::loadModel(std::string(VZ_SOURCE_DIR "/demos/sample/") + name + ".asc", material);
            vz::prepareMesh(*mesh);
            addSymbol(std::move(mesh), name);
        }
        addSymbol(vz::GenModels::loadModel(VZ_SOURCE_DIR "/demos/sample/dice.asc", material), "morphed");
    }
};

void BM_Line(benchmark::State& state, const char* line) {
    Stage stage(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    auto component = stage.make(line);
    const double best = vz::bench::bestFrameSeconds(state, *component);
    state.counters["fps"] = 1.0 / best;
    state.counters["ns_per_px"] = best * 1e9 / static_cast<double>(state.range(0) * state.range(1));
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080})->UseRealTime(); }
void meshOnly(benchmark::internal::Benchmark* b) { b->Args({640, 480})->UseRealTime(); }

#define VZ_BENCH_LINE(name, line, args) BENCHMARK_CAPTURE(BM_Line, name, line)->Apply(args);

VZ_BENCH_LINE(wireframeFlower, "wireframeFlower32bpp screen pal constVector3 0.4 0.9 0.2 constInt 33", sizes)
VZ_BENCH_LINE(wireframeADN, "wireframeADN32bpp screen pal constVector3 0.3 0.5 1.2 constInt 33", sizes)
VZ_BENCH_LINE(flareCube, "flareCube32bpp screen star constVector3 0.5 0.7 0.1 constInt 33", sizes)
VZ_BENCH_LINE(lensflareSpline, "lensflareSpline32bpp screen star constVector3 60 -40 400 constInt 33", sizes)
VZ_BENCH_LINE(cubeOfCubes, "cubeOfCubes32bpp screen z cube constVector3 0.5 0.7 0.1", sizes)
VZ_BENCH_LINE(cubeOfCubesSinus, "cubeOfCubesSinus32bpp screen z cube constVector3 0.5 0.7 0.1 constFloat 0.6", sizes)
VZ_BENCH_LINE(cubesDelay, "cubesDelay32bpp screen z cube constVector3 0.5 0.7 0.1 0.15", sizes)
VZ_BENCH_LINE(metaballs, "metaballs32bpp screen z mat constVector3 0 0 400", sizes)
VZ_BENCH_LINE(morphingModel, "morphingModel morphed dice spiky constFloat 0.5", meshOnly)
VZ_BENCH_LINE(blobbyModel, "blobbyModel dice constFloat 0.25 constFloat 1.2", meshOnly)
VZ_BENCH_LINE(spherifyCubeModel, "spherifyCubeModel dice constFloat 0.5", meshOnly)
VZ_BENCH_LINE(delayModel, "delayModel dice constVector3 0.5 0.7 0.1 0.6", meshOnly)
VZ_BENCH_LINE(envmapModel, "envmapModel dice", meshOnly)
VZ_BENCH_LINE(phongModel, "phongModel dice constVector3 -300 200 100", meshOnly)
VZ_BENCH_LINE(lightFlatModel, "lightFlatModel dice constVector3 -300 200 100", meshOnly)
VZ_BENCH_LINE(lightGouraudModel, "lightGouraudModel dice constVector3 -300 200 100", meshOnly)

// The metaball surface alone (no drawing) for grids of 20 to 36 points a side: what the
// grid size of metaballs32bpp costs, whatever the target. Five balls of radius 55, as the
// component's, at their places of t = 1.
void BM_MetaballSurface(benchmark::State& state) {
    const int points = static_cast<int>(state.range(0));
    vz::MetaballSurface surface(points, 100, 20000);
    auto mesh = vz::makeMetaballMesh(20000);
    const std::vector<vz::Ball> balls{
        {{31, -20, 12}, 55}, {{-40, 25, 30}, 55}, {{10, 38, -35}, 55}, {{-15, -42, -5}, 55}, {{44, 5, -28}, 55}};
    for (auto _ : state) {
        surface.build(balls, *mesh, nullptr);
        benchmark::DoNotOptimize(mesh->faceCount);
    }
    state.counters["faces"] = mesh->faceCount;
}
BENCHMARK(BM_MetaballSurface)->Arg(20)->Arg(28)->Arg(36)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
