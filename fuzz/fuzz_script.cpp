// A whole demo script on arbitrary text, played for a few frames against files held in
// memory: the timeline grammar, resource declarations of every kind and the parameters
// of every built component keyword. The input is main.txt; lines "@@@ NAME" start
// further files (nested scripts, key files, pictures), which may replace the fixed ones.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "FuzzSupport.hpp"
#include "core/Layer.hpp"
#include "core/LayerManager.hpp"
#include "core/MemoryBudget.hpp"
#include "core/error.hpp"
#include "script/RandomSeed.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "shell/sound/SoundSystem.hpp"
#include "tests/shell/TestSong.hpp"
#include "tools/writers/BmpWriter.hpp"
#include "tools/writers/GifWriter.hpp"
#include "tools/writers/JpegWriter.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace {

namespace writers = vz::writers;

constexpr int screenWidth = 64, screenHeight = 48;
constexpr float frameTimes[] = {0.0f, 0.1f, 0.35f, 1.0f, 2.5f, 7.0f, 20.0f};

std::vector<std::uint32_t> greys() {
    std::vector<std::uint32_t> palette(256);
    for (std::uint32_t i = 0; i < 256; ++i) palette[i] = i * 0x010203u & 0xFFFFFF;
    return palette;
}

writers::IndexedPicture pattern(int width, int height, int step) {
    std::vector<std::uint8_t> indices(static_cast<std::size_t>(width) * height);
    for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = static_cast<std::uint8_t>(i * step / 7);
    return {width, height, std::move(indices), greys()};
}

writers::RgbPicture greyPicture(int width, int height, int step) {
    std::vector<std::uint32_t> colours(static_cast<std::size_t>(width) * height);
    for (std::size_t i = 0; i < colours.size(); ++i) colours[i] = (i * step / 7 & 0xFF) * 0x010101u;
    return {width, height, colours};
}

// The files every input can name: pictures of the sizes components ask for (the band,
// 256 x 256 textures and tables, a font strip), key files of every kind, a material, a
// nested script, a text, raw bytes and a module.
const vz::File::MemoryFiles& fixedAssets() {
    static const vz::File::MemoryFiles assets = [] {
        vz::File::MemoryFiles files;
        files["a.pcx"] = writers::encodePcx(pattern(16, 16, 3));
        files["s.pcx"] = writers::encodePcx(pattern(screenWidth, screenHeight, 5));
        files["t.pcx"] = writers::encodePcx(pattern(256, 256, 1));
        files["police.pcx"] = writers::encodePcx(pattern(8, 8 * 36, 11));
        files["g.gif"] = writers::encodeGif(pattern(16, 16, 2));
        files["p.bmp"] = writers::encodeBmp24({16, 16, std::vector<std::uint32_t>(256, 0x804020)});
        files["j.jpg"] = writers::encodeJpeg(greyPicture(16, 16, 9), 90, writers::JpegColour::grey);
        files["i.txt"] = vz::fuzz::bytesOf("square 3 1\n0 0\n5 1\n-2 2\n");
        files["f.txt"] = vz::fuzz::bytesOf("linear 3 0.5\n0 0\n1.5 1\n0 2\n");
        files["v2.txt"] = vz::fuzz::bytesOf("spline 4 1\n0 0 0\n1 2 1\n3 1 2\n0 0 3\n");
        files["v3.txt"] = vz::fuzz::bytesOf("cosinus 2 1\n0 0 1 0\n1 1 2 1\n");
        files["sp.txt"] = vz::fuzz::bytesOf("linear 3 1\n-1 -1 1 1 0\n1 1 2 2 1\n-1 -1 1 1 2\n");
        files["m.txt"] = vz::fuzz::bytesOf("rendu add\nsprite\nid gouraud8bpp\ndoubleface true\n");
        files["n.txt"] = vz::fuzz::bytesOf("fillColor32bpp screen constColor 1 2 3 constInt 16\n0 9 0 1 0\n");
        files["x.txt"] = vz::fuzz::bytesOf("HELLO WORLD\nSECOND LINE\n");
        files["r.bin"] = {1, 2, 3, 4, 5};
        files["music.mod"] = vz::test::makeTestSong();
        return files;
    }();
    return assets;
}

void setUpOnce() {
    static bool done = false;
    if (done) return;
    done = true;
    // Small pools, and a budget that keeps the largest layers quick to clear.
    vz::MemoryBudget::setLimit(std::int64_t{32} << 20);
    vz::LayerManager::install(std::make_unique<vz::LayerManager>(40, 32, screenWidth * screenHeight));
    vz::SoundSystem::instance().initialise(true, vz::AudioMode::lockStep, 50.0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    setUpOnce();
    vz::File::MemoryFiles files = fixedAssets();
    vz::fuzz::splitFiles(data, size, "main.txt", files);
    vz::fuzz::MemoryFiles served(std::move(files));
    vz::resetRandomSeeds();
    std::vector<std::uint32_t> screenPixels(screenWidth * screenHeight);
    try {
        vz::Show show;
        vz::Sequencer sequencer("main.txt", show);
        show.repository.add(std::make_unique<vz::Symbol>(
                                std::make_unique<vz::Layer32bpp>(screenWidth, screenHeight, screenPixels.data())),
                            "screen");
        for (float t : frameTimes) {
            if (show.ended) break;
            sequencer.run(t);
            vz::SoundSystem::instance().endFrame();
        }
    } catch (const vz::error& e) {
        if (std::getenv("VZ_FUZZ_DEBUG")) std::fprintf(stderr, "%s\n", vz::errorLine(e).c_str());
    }
    return 0;
}
