// The scene export reader and the scene stream player on arbitrary bytes: the stream is
// advanced through its whole time range once it opens.
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "core/error.hpp"
#include "engine3d/loaders/SceneExport.hpp"
#include "engine3d/stream/StreamPlayer.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const char* name = "fuzz-scene.bin";
    if (std::FILE* file = std::fopen(name, "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    try {
        vz::readSceneExport(name);
    } catch (const vz::error&) {
    }
    try {
        vz::StreamPlayer player(name);
        for (float t : {-1.0f, 0.0f, 0.5f, 2.0f, 1e30f}) player.advance(t);
    } catch (const vz::error&) {
    }
    return 0;
}
