// make_sample_assets [OUTPUT_DIR]: writes every generated file of the sample demo
// into OUTPUT_DIR (default demos/sample) and lists them. Same output on every run.
#include <cstdio>
#include <exception>
#include <filesystem>

#include "tools/assetgen/Assets.hpp"

int main(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        std::fprintf(stderr, "usage: make_sample_assets [OUTPUT_DIR]\n");
        return 2;
    }
    const std::filesystem::path dir = argc == 2 ? argv[1] : "demos/sample";
    try {
        std::filesystem::create_directories(dir);
        size_t total = 0;
        for (const vz::assetgen::Asset& asset : vz::assetgen::makeAllAssets()) {
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
