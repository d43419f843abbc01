#pragma once
// Helpers of the effect tests: small layers, palettes and colours registered under
// names, and components built from one script line exactly as the timeline builds them.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

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
#include "support/TestSupport.hpp"

namespace vz::test {

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
