// The polygon rasterizer: a spinning 5,000-face textured mesh drawn z-buffered into a
// cleared 1920 x 1080 target, by our renderer (front end included) and, when OSMesa is
// installed, by Mesa's llvmpipe on one thread; full-screen textured and flat spans
// against memcpy of the same bytes; small triangles per second.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

#include "core/Layer.hpp"
#include "core/Zbuffer.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "script/Material.hpp"

#ifdef VZ_HAVE_OSMESA
#include <GL/gl.h>
#include <GL/osmesa.h>
#endif

namespace {

using namespace vz;

constexpr int width = 1920, height = 1080;
constexpr int rings = 50, sides = 50;  // 2 x 50 x 50 = 5,000 faces
constexpr float ringRadius = 80, tubeRadius = 35;
constexpr float fov = 1.0f;  // the mesh players' field of view at start, in radians

struct Torus {
    std::vector<float> xyz, uv;
    std::vector<unsigned> corners;  // three per face, anticlockwise seen from outside
    Torus() {
        for (int i = 0; i <= rings; ++i)
            for (int j = 0; j <= sides; ++j) {
                const double a = 2 * std::numbers::pi * i / rings, b = 2 * std::numbers::pi * j / sides;
                const double r = ringRadius + tubeRadius * std::cos(b);
                xyz.insert(xyz.end(),
                           {float(r * std::cos(a)), float(tubeRadius * std::sin(b)), float(r * std::sin(a))});
                uv.insert(uv.end(), {4.0f * i / rings, 2.0f * j / sides});
            }
        for (int i = 0; i < rings; ++i)
            for (int j = 0; j < sides; ++j) {
                const unsigned p = unsigned(i * (sides + 1) + j), q = p + sides + 1;
                corners.insert(corners.end(), {p, p + 1, q, q, p + 1, q + 1});
            }
    }
};

std::vector<std::uint32_t> noiseTexture() {
    std::vector<std::uint32_t> texels(256 * 256);
    std::mt19937 random(7);
    for (auto& t : texels) t = random() & 0xFFFFFF;
    return texels;
}

// Our side: the mesh, its material, the target and the z-buffer.
struct OurScene {
    Layer32bpp target{width, height};
    Layer32bpp texture{256, 256};
    Zbuffer zbuffer{width, height};
    std::unique_ptr<Meshe> mesh;
    Camera camera;
    RenderContext context;

    explicit OurScene(int materialId) {
        const auto texels = noiseTexture();
        std::copy(texels.begin(), texels.end(), texture.pixels);
        auto material = std::make_shared<Material>();
        material->id = materialId;
        material->map32 = &texture;
        const Torus torus;
        const int vertexCount = static_cast<int>(torus.uv.size() / 2);
        mesh = std::make_unique<Meshe>(vertexCount, static_cast<int>(torus.corners.size() / 3), 0);
        for (int i = 0; i < vertexCount; ++i) {
            Vertex& v = mesh->vertices[static_cast<std::size_t>(i)];
            v.x = torus.xyz[3 * i];
            v.y = torus.xyz[3 * i + 1];
            v.z = torus.xyz[3 * i + 2];
            v.u = torus.uv[2 * i];
            v.v = torus.uv[2 * i + 1];
        }
        for (std::size_t f = 0; f < mesh->faces.size(); ++f) {
            Face& face = mesh->faces[f];
            for (int k = 0; k < 4; ++k) face.corners[k] = &mesh->vertices[torus.corners[3 * f + k % 3]];
        }
        mesh->bindAll(material);
        camera.fov = fov;
        context.target32 = target.pixels;
        context.zbuffer = zbuffer.pixels;
    }

    void frame(float t) {
        std::fill_n(target.pixels, target.pixelCount(), 0);
        zbuffer.advanceStamp();
        context.zword = zbuffer.stamp;
        mesh->rotation = rotationFromAngles(0.7f * t, t, 0.3f * t);
        mesh->lastTime = -1;
        beginFrame(context, camera, target);
        addMeshe(context, *mesh, t);
        raster::drawZbuffer32(context);
    }
};

// The pixels a frame at this time covers: both renderers should report the same count.
constexpr float coverageTime = 1.0f;
std::int64_t covered(const std::uint32_t* pixels) {
    return std::count_if(pixels, pixels + std::int64_t{width} * height, [](std::uint32_t p) { return p != 0; });
}

void BM_MeshOurs(benchmark::State& state) {
    OurScene scene(0);
    float t = 0;
    for (auto _ : state) {
        scene.frame(t += 0.01f);
        benchmark::DoNotOptimize(scene.target.pixels);
    }
    state.counters["fps"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    scene.frame(coverageTime);
    state.counters["faces"] = static_cast<double>(scene.context.faces.size());
    state.counters["covered"] = static_cast<double>(covered(scene.target.pixels));
}
BENCHMARK(BM_MeshOurs)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

#ifdef VZ_HAVE_OSMESA
// llvmpipe takes its thread count when its first context is made. Its rasterizer works in
// a thread of its own, so both mesh benchmarks count the whole process's CPU time.
[[maybe_unused]] const int oneThread = setenv("LP_NUM_THREADS", "1", 1);

void BM_MeshLlvmpipe(benchmark::State& state) {
    OSMesaContext gl = OSMesaCreateContextExt(OSMESA_BGRA, 24, 0, 0, nullptr);
    std::vector<std::uint32_t> buffer(std::size_t{width} * height);
    if (!gl || !OSMesaMakeCurrent(gl, buffer.data(), GL_UNSIGNED_BYTE, width, height)) {
        state.SkipWithError("no OSMesa context");
        return;
    }
    const Torus torus;
    const auto texels = noiseTexture();
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 256, 256, 0, GL_BGRA, GL_UNSIGNED_BYTE, texels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    glFrontFace(GL_CW);  // our screen rows run down, GL's up
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    const double nearZ = 1, halfWide = nearZ * std::tan(fov / 2), halfHigh = halfWide * height / width;
    glFrustum(-halfWide, halfWide, -halfHigh, halfHigh, nearZ, 4096);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, torus.xyz.data());
    glTexCoordPointer(2, GL_FLOAT, 0, torus.uv.data());
    glClearColor(0, 0, 0, 0);
    auto frame = [&](float t) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        // The same placement as ours; GL's camera looks down -z, ours down +z.
        const Mat3 r = rotationFromAngles(0.7f * t, t, 0.3f * t);
        const GLfloat modelView[16] = {
            r.rows[0].x, r.rows[1].x, -r.rows[2].x, 0, r.rows[0].y, r.rows[1].y, -r.rows[2].y, 0,
            r.rows[0].z, r.rows[1].z, -r.rows[2].z, 0, 0,           0,           -256,         1};
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(modelView);
        glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(torus.corners.size()), GL_UNSIGNED_INT, torus.corners.data());
        glFinish();
    };
    float t = 0;
    for (auto _ : state) {
        frame(t += 0.01f);
        benchmark::DoNotOptimize(buffer.data());
    }
    state.counters["fps"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    frame(coverageTime);
    state.counters["covered"] = static_cast<double>(covered(buffer.data()));
    glDeleteTextures(1, &texture);
    OSMesaDestroyContext(gl);
}
BENCHMARK(BM_MeshLlvmpipe)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
#endif

// A full-screen quad drawn without the z-buffer: the span loop and nothing else.
void fullScreen(benchmark::State& state, int materialId) {
    std::vector<std::uint32_t> target(std::size_t{width} * height);
    Layer32bpp texture(256, 256);
    const auto texels = noiseTexture();
    std::copy(texels.begin(), texels.end(), texture.pixels);
    Material material;
    material.id = materialId;
    material.map32 = &texture;
    RenderContext context;
    context.viewport = {width / 2, height / 2, width / 2, height / 2, width, height, width};
    context.target32 = target.data();
    // Corners anticlockwise; the mapping steps a little under one texel a pixel.
    context.vertices = {{-1, -1, 0.5f, 0, 0}, {-1, 1, 0.5f, 0, 3.5f}, {1, 1, 0.5f, 6.5f, 3.5f}, {1, -1, 0.5f, 6.5f, 0}};
    context.faces = {{&material, materialId, 0x123456, 0, 4}};
    for (auto _ : state) {
        raster::drawPainter32(context);
        benchmark::DoNotOptimize(target.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * width * height * 4);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * width * height);
}
void BM_SpanTextured(benchmark::State& state) { fullScreen(state, 0); }
void BM_SpanFlat(benchmark::State& state) { fullScreen(state, 4); }
BENCHMARK(BM_SpanTextured)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SpanFlat)->Unit(benchmark::kMillisecond);

void BM_Memcpy(benchmark::State& state) {
    std::vector<std::uint32_t> from(std::size_t{width} * height, 1), to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * 4);
        benchmark::DoNotOptimize(to.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * width * height * 4);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * width * height);
}
BENCHMARK(BM_Memcpy)->Unit(benchmark::kMillisecond);

// Triangles of 18 pixels (legs of 6) tiled over the screen, textured and z-buffered.
void BM_SmallTriangles(benchmark::State& state) {
    std::vector<std::uint32_t> target(std::size_t{width} * height), depths(target.size());
    Layer32bpp texture(256, 256);
    Material material;
    material.id = 0;
    material.map32 = &texture;
    RenderContext context;
    context.viewport = {0, 0, 1, 1, width, height, width};
    context.target32 = target.data();
    context.zbuffer = depths.data();
    for (int y = 0; y + 6 < height; y += 7)
        for (int x = 0; x + 6 < width; x += 7) {
            const float fx = x + 0.3f, fy = y + 0.6f;
            const int first = static_cast<int>(context.vertices.size());
            context.vertices.push_back({fx, fy, 0.5f, 0, 0});
            context.vertices.push_back({fx, fy + 6, 0.5f, 0, 0.02f});
            context.vertices.push_back({fx + 6, fy + 6, 0.5f, 0.02f, 0.02f});
            context.faces.push_back({&material, 0, 0, first, 3});
        }
    std::uint32_t stamp = 0;
    for (auto _ : state) {
        context.zword = stamp = (stamp + 0x01000000) & 0x7F000000;
        raster::drawZbuffer32(context);
        benchmark::DoNotOptimize(target.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(context.faces.size()));
}
BENCHMARK(BM_SmallTriangles)->Unit(benchmark::kMillisecond);

}  // namespace
