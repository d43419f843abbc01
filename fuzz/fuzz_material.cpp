// Material files on arbitrary text, against a repository holding one symbol of each kind
// a material names (and some of the wrong kind).
#include <cstddef>
#include <cstdint>

#include "FuzzSupport.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "script/Material.hpp"
#include "script/Repository.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::fuzz::MemoryFiles files({{"m.txt", {data, data + size}}});
    vz::Repository repository;
    repository.add(std::make_unique<vz::Symbol>(std::make_unique<vz::Layer32bpp>(4, 4)), "tex");
    repository.add(std::make_unique<vz::Symbol>(std::make_unique<vz::Layer8bpp>(4, 4)), "map");
    repository.add(std::make_unique<vz::Symbol>(std::make_unique<vz::Palette>()), "pal");
    repository.add(std::make_unique<vz::Symbol>(std::make_unique<vz::Color>(0x123456u)), "col");
    try {
        vz::Material::load("m.txt", repository);
    } catch (const vz::error&) {
    }
    return 0;
}
