// The picture loaders above the decoders on arbitrary bytes: the entry point and the
// file name (so the extension) chosen by the first byte, the rest the file; and the
// offset tables built from two pictures, the input cut in two.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.hpp"
#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "core/MemoryBudget.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "script/OffsetsTable.hpp"

namespace {

const char* const names[] = {"p.pcx", "p.gif", "p.bmp", "p.jpg", "P.PCX", "p.v2.pcx", "p", "p.txt"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Layers of the largest accepted size only spend the fuzzer's time on clearing them.
    vz::MemoryBudget::setLimit(std::int64_t{64} << 20);
    if (size < 1) return 0;
    const std::uint8_t choice = data[0];
    const std::string name = names[choice % 8];
    const std::size_t half = (size - 1) / 2;
    vz::fuzz::MemoryFiles files({{name, {data + 1, data + size}},
                                 {"a.pcx", {data + 1, data + 1 + half}},
                                 {"b.pcx", {data + 1 + half, data + size}},
                                 {"a.gif", {data + 1, data + 1 + half}},
                                 {"b.gif", {data + 1 + half, data + size}}});
    try {
        switch (choice / 8 % 5) {
        case 0: vz::ImageLoader::LoadLayer32bpp(name); break;
        case 1: vz::ImageLoader::LoadLayer8bpp(name); break;
        case 2: vz::ImageLoader::LoadPalette(name); break;
        case 3: vz::ImageLoader::LoadLayerRle(name); break;
        default: vz::OffsetsTable::load(choice & 64 ? "a.gif" : "a.pcx", choice & 128 ? "b.gif" : "b.pcx"); break;
        }
    } catch (const vz::error&) {
    }
    return 0;
}
