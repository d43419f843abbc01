// make_sample_assets [--band WxH] [OUTPUT_DIR]: writes every generated file of the
// sample demo into OUTPUT_DIR (default demos/sample) and lists them. Same output on
// every run. --band makes the band-sized pictures for a W x H band instead of 640 x 400.
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/WriteFile.hpp"

namespace {

// "WxH", W a multiple of 4 (JPEG and BMP rows are read without padding) and both
// within what the 16-bit picture headers can hold.
std::optional<vz::assetgen::Band> parseBand(const char* text) {
    int width = 0, height = 0, used = 0;
    if (std::sscanf(text, "%dx%d%n", &width, &height, &used) != 2 || text[used] != '\0') return std::nullopt;
    if (width < 4 || width > 65532 || width % 4 != 0 || height < 1 || height > 65535) return std::nullopt;
    return vz::assetgen::Band{width, height};
}

int usage() {
    std::fprintf(stderr,
                 "usage: make_sample_assets [--band WxH] [OUTPUT_DIR]\n"
                 "  WxH: band size, W a multiple of 4 (default 640x400)\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    vz::assetgen::Band band;
    std::optional<std::filesystem::path> output;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--band") == 0 && i + 1 < argc) {
            const std::optional<vz::assetgen::Band> parsed = parseBand(argv[++i]);
            if (!parsed) return usage();
            band = *parsed;
        } else if (argv[i][0] == '-' || output) {
            return usage();
        } else {
            output = argv[i];
        }
    }
    const std::filesystem::path dir = output.value_or("demos/sample");
    try {
        std::filesystem::create_directories(dir);
        size_t total = 0;
        for (const vz::assetgen::Asset& asset : vz::assetgen::makeAllAssets(band)) {
            vz::assetgen::writeFile((dir / asset.name).string(), asset.bytes);
            std::printf("%8zu  %s\n", asset.bytes.size(), asset.name.c_str());
            total += asset.bytes.size();
        }
        std::printf("%8zu  bytes in %s\n", total, dir.string().c_str());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_sample_assets: %s\n", e.what());
        return 1;
    }
    return 0;
}
