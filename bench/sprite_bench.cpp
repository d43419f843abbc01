// Sprite and text drawing: pixels of the drawn runs per second. Arguments: target width
// and height. A 256 x 256 picture (a quarter of it black) is drawn unscaled and at 1.5 x
// through "normal" and "add"; the text is one line of 32 x 32 glyphs.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>

#include "core/Layer.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/sprites/SpriteDrawing.hpp"
#include "effects/sprites/TextDrawing.hpp"

namespace {

void randomPicture(vz::Layer32bpp& picture) {
    std::mt19937 random(11);
    for (std::int64_t i = 0; i < picture.pixelCount(); ++i)
        picture.pixels[i] = random() % 4 == 0 ? 0 : random() & 0xFFFFFF;
}

void BM_Sprite(benchmark::State& state, float scale, int rendu) {
    vz::Layer32bpp target(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    vz::Layer32bpp picture(256, 256);
    randomPicture(picture);
    vz::Sprite sprite{256, 256, 0, 0, scale, scale};
    vz::placeSprite(sprite, target, 0, 0);
    const auto run = vz::clipSprite(sprite, target);
    for (auto _ : state) {
        vz::drawSprite(target, *run, picture.pixels, picture.width, rendu);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * run->width * run->height);
}

void BM_TextLine(benchmark::State& state) {
    vz::Layer32bpp target(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    vz::Layer32bpp font(32, 32 * 36);
    randomPicture(font);
    vz::TextStyle style;
    style.x = -0.9f;
    style.spacing = 32;                     // the advance is (32 + 32) / W units = 32 pixels: glyphs side by side
    const char* line = "BROWN FOX 012345";  // fits in 640 pixels
    int glyphs = 0;
    for (const char* c = line; *c; ++c) glyphs += *c != ' ';
    for (auto _ : state) {
        vz::drawText(target, font, style, line);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * glyphs * 32 * 32);
}

void sizes(benchmark::internal::Benchmark* b) { b->Args({640, 480})->Args({1920, 1080}); }

BENCHMARK_CAPTURE(BM_Sprite, unscaled_normal, 1.0f, vz::renduNormal)->Apply(sizes);
BENCHMARK_CAPTURE(BM_Sprite, unscaled_add, 1.0f, vz::renduAdd)->Apply(sizes);
BENCHMARK_CAPTURE(BM_Sprite, scaled_normal, 1.5f, vz::renduNormal)->Apply(sizes);
BENCHMARK_CAPTURE(BM_Sprite, scaled_glenz50, 1.5f, vz::renduGlenz50)->Apply(sizes);
BENCHMARK(BM_TextLine)->Apply(sizes);

}  // namespace
