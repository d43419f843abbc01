#pragma once
// Helpers of the effect tests: small layers, palettes and colours registered under
// names, components built from one script line exactly as the timeline builds them, and
// small pictures.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/RandomSeed.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "script/TextParser.hpp"
#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {

using Pixels = std::vector<std::uint32_t>;

// A grey pixel (the same value in the three colour bytes, alpha 0).
constexpr std::uint32_t grey(std::uint32_t g) { return g * 0x010101u; }

inline Pixels pixelsOf(const Layer32bpp& layer) { return {layer.pixels, layer.pixels + layer.pixelCount()}; }

// The frame checksum of the end-to-end runs, of a layer: pins a noisy picture exactly.
inline std::uint64_t checksumOf(const Layer32bpp& layer) {
    return checksum(Picture{layer.width, layer.height, pixelsOf(layer)});
}

inline void setPixels(Layer32bpp& layer, const Pixels& values) {
    std::copy(values.begin(), values.end(), layer.pixels);
}

inline void fillRandom(Layer32bpp& layer, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::generate_n(layer.pixels, layer.pixelCount(), random);
}

// Each pixel tells where it is: x in the low byte, y in the next.
inline void fillCoordinates(Layer32bpp& layer) {
    for (int y = 0; y < layer.height; ++y)
        for (int x = 0; x < layer.width; ++x) layer.row(y)[x] = static_cast<std::uint32_t>(y << 8 | x);
}

// The layer as text: one character per pixel, `charOf` its value; rows separated by '|'.
template <class CharOf>
std::string textOf(const Layer32bpp& layer, CharOf charOf) {
    std::string text;
    for (std::int64_t i = 0; i < layer.pixelCount(); ++i) {
        if (i && i % layer.width == 0) text += '|';
        text += static_cast<char>(charOf(layer.pixels[i]));
    }
    return text;
}

class EffectTest : public ::testing::Test {
protected:
    EffectTest() { resetRandomSeeds(); }
    ~EffectTest() override { resetRandomSeeds(); }

    Show show;  // where the layers are named and the components made

    Layer32bpp& addLayer32(const std::string& name, int w, int h, std::uint32_t fill = 0) {
        auto layer = std::make_unique<Layer32bpp>(w, h);
        std::fill_n(layer->pixels, layer->pixelCount(), fill);
        return add<Layer32bpp>(std::move(layer), name);
    }
    Layer8bpp& addLayer8(const std::string& name, int w, int h, std::uint8_t fill = 0) {
        auto layer = std::make_unique<Layer8bpp>(w, h);
        std::fill_n(layer->pixels, layer->pixelCount(), fill);
        return add<Layer8bpp>(std::move(layer), name);
    }
    Palette& addPalette(const std::string& name) { return add<Palette>(std::make_unique<Palette>(), name); }
    Color& addColor(const std::string& name, std::uint32_t value) {
        return add<Color>(std::make_unique<Color>(value), name);
    }
    template <class T>
    T& add(std::unique_ptr<T> resource, const std::string& name) {
        T& ref = *resource;
        show.repository.add(std::make_unique<Symbol>(std::move(resource)), name);
        return ref;
    }

    // The component of one script line ("copyLayer32bpp screen pic constInt 32"), built by
    // the builder its keyword registered, reading its parameters from that line.
    std::unique_ptr<Component> make(const std::string& line) {
        writeFile("component-line.txt", line + "\n");
        TextParser parser;
        parser.open("component-line.txt");
        parser.nextLine();
        std::string keyword = parser.getToken();
        ComponentBuilder builder = findComponentBuilder(keyword.c_str());
        if (!builder) throw error("no component is built for " + keyword);
        ComponentContext context(keyword, parser, show, sequencer());
        std::unique_ptr<Component> component = builder(context);
        component->keepAlive(context.takeBorrowed());
        return component;
    }

private:
    Sequencer& sequencer() {
        if (!sequencer_) {
            writeFile("main.txt", "");
            sequencer_ = std::make_unique<Sequencer>("main.txt", show);
        }
        return *sequencer_;
    }
    ScratchDir dir_;
    std::unique_ptr<Sequencer> sequencer_;
};

}  // namespace vz::test
