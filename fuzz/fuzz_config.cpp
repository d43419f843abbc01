// config.txt on arbitrary text: the six numbers, the switches and the size checks.
#include <cstddef>
#include <cstdint>

#include "FuzzSupport.hpp"
#include "core/error.hpp"
#include "shell/Config.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::fuzz::MemoryFiles files({{"config.txt", {data, data + size}}});
    try {
        vz::Config::read("config.txt");
    } catch (const vz::error&) {
    }
    return 0;
}
