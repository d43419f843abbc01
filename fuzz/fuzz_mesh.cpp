// The mesh readers ("asc" and "3d") and the preparation passes on arbitrary text.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "core/error.hpp"
#include "engine3d/MeshPreparation.hpp"
#include "engine3d/loaders/GenModels.hpp"
#include "script/Material.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto material = std::make_shared<vz::Material>();
    for (const char* name : {"fuzz-mesh.asc", "fuzz-mesh.3d"}) {
        if (std::FILE* file = std::fopen(name, "wb")) {
            std::fwrite(data, 1, size, file);
            std::fclose(file);
        }
        try {
            auto mesh = vz::GenModels::loadModel(name, material);
            vz::prepareMesh(*mesh);
        } catch (const vz::error&) {
        }
    }
    return 0;
}
