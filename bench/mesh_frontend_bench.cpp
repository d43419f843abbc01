// The transform front end and a whole mesh frame, against a plain copy of the frame.
// A 5,000-face torus (50 x 50 cells, textured 256 x 256) spins at the default distance on a
// 1920 x 1080 target. Reported: faces per second through the front end alone (transform,
// clipping, projection, painter's sort), and frames per second of a whole z-buffered frame
// (clear, front end, rasterizer), each with the ratio of its time to a memcpy of the frame.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

#include "core/Layer.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "script/Material.hpp"

namespace {

constexpr int width = 1920, height = 1080, cells = 50;

struct Stage {
    Stage() : target(width, height), texture(256, 256), depth(std::size_t{width} * height), copy(depth.size()) {
        std::mt19937 random(3);
        for (std::int64_t i = 0; i < texture.pixelCount(); ++i) texture.pixels[i] = random() & 0xFFFFFF;
        // Written once, so that the frame copy reads real pages.
        for (std::int64_t i = 0; i < target.pixelCount(); ++i) target.pixels[i] = random();
        material->map32 = &texture;
        material->id = 0;
        mesh = std::make_unique<vz::Meshe>((cells + 1) * (cells + 1), 2 * cells * cells, 0);
        for (int j = 0; j <= cells; ++j)
            for (int i = 0; i <= cells; ++i) {
                const double a = 6.283185 * i / cells, b = 6.283185 * j / cells, ring = 90 + 35 * std::cos(b);
                vz::Vertex& v = mesh->vertices[j * (cells + 1) + i];
                v.x = static_cast<float>(ring * std::cos(a));
                v.z = static_cast<float>(ring * std::sin(a));
                v.y = static_cast<float>(35 * std::sin(b));
                v.u = 2.0f * i / cells;
                v.v = 1.0f * j / cells;
            }
        int f = 0;
        for (int j = 0; j < cells; ++j)
            for (int i = 0; i < cells; ++i) {
                const int p00 = j * (cells + 1) + i, p10 = p00 + 1, p01 = p00 + cells + 1, p11 = p01 + 1;
                for (const auto& tri : {std::array<int, 3>{p00, p11, p10}, std::array<int, 3>{p00, p01, p11}}) {
                    auto& face = mesh->faces[f++];
                    for (int k = 0; k < 4; ++k) face.corners[k] = &mesh->vertices[tri[k % 3]];
                }
            }
        mesh->bindAll(material);
        camera.fov = 1;
    }
    void turn(double t) {
        mesh->rotation = vz::rotationFromAngles(static_cast<float>(t), static_cast<float>(0.7 * t), 0.3f);
        mesh->lastTime = -1;
    }

    vz::Layer32bpp target, texture;
    std::vector<std::uint32_t> depth, copy;
    std::shared_ptr<vz::Material> material = std::make_shared<vz::Material>();
    std::unique_ptr<vz::Meshe> mesh;
    vz::Camera camera;
    vz::RenderContext context;
};

// The thread's processor time: the machine may be shared, and the wall clock would count
// the waits.
double cpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + now.tv_nsec * 1e-9;
}

// Seconds of one memcpy of the frame: the best of several.
double frameCopySeconds(Stage& s) {
    double best = 1e9;
    for (int rep = 0; rep < 20; ++rep) {
        const double start = cpuSeconds();
        std::memcpy(s.copy.data(), s.target.pixels, s.copy.size() * 4);
        benchmark::DoNotOptimize(s.copy.data());
        best = std::min(best, cpuSeconds() - start);
    }
    return best;
}

// The time of one iteration against a memcpy of the frame.
void reportAgainstCopy(benchmark::State& state, Stage& s, double seconds) {
    const double perIteration = seconds / static_cast<double>(state.iterations());
    const double copy = frameCopySeconds(s);
    state.counters["ms"] = perIteration * 1e3;
    state.counters["memcpy_ms"] = copy * 1e3;
    state.counters["x_memcpy"] = perIteration / copy;
}

void BM_FrontEnd(benchmark::State& state) {
    Stage s;
    s.context.lowQuality = state.range(0) != 0;
    double t = 0;
    const double start = cpuSeconds();
    for (auto _ : state) {
        s.turn(t += 0.01);
        vz::beginFrame(s.context, s.camera, s.target);
        vz::addMeshe(s.context, *s.mesh, 0);
        vz::sortFarToNear(s.context);
        benchmark::DoNotOptimize(s.context.faces.data());
    }
    const double seconds = cpuSeconds() - start;
    state.SetItemsProcessed(state.iterations() * s.mesh->faceCount);
    state.counters["visible"] = static_cast<double>(s.context.faces.size());
    reportAgainstCopy(state, s, seconds);
}
BENCHMARK(BM_FrontEnd)->Arg(0)->Arg(1)->ArgName("lowQuality");

void BM_ZbufferFrame(benchmark::State& state) {
    Stage s;
    double t = 0;
    const double start = cpuSeconds();
    for (auto _ : state) {
        s.turn(t += 0.01);
        std::memset(s.target.pixels, 0, s.depth.size() * 4);
        std::memset(s.depth.data(), 0, s.depth.size() * 4);
        vz::beginFrame(s.context, s.camera, s.target);
        vz::addMeshe(s.context, *s.mesh, 0);
        vz::sortFarToNear(s.context);
        s.context.target32 = s.target.pixels;
        s.context.zbuffer = s.depth.data();
        vz::raster::drawZbuffer32(s.context);
        benchmark::DoNotOptimize(s.target.pixels);
    }
    const double seconds = cpuSeconds() - start;
    state.counters["fps"] = static_cast<double>(state.iterations()) / seconds;
    reportAgainstCopy(state, s, seconds);
}
BENCHMARK(BM_ZbufferFrame)->Unit(benchmark::kMillisecond);

}  // namespace
