// The music bridges on arbitrary bytes: libopenmpt and libmpg123 reading the file from
// memory through the player's reader callbacks, positioned as the script would ask, a
// few blocks rendered and the volume changed between them.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/sound/MusicDecoder.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const bool module = data[0] & 1;
    const int where = module ? data[1] % 8 : data[1] * 997;  // an order, or milliseconds
    std::vector<std::uint8_t> bytes(data + 2, data + size);
    std::string why;
    auto music = module ? vz::openModule(bytes, where, why) : vz::openStream(std::move(bytes), where, why);
    std::vector<std::int16_t> block(2 * 1024);
    for (int volume : {255, 0, 128, 300, -4}) {
        if (music) music->setVolume(volume);
        vz::renderOrSilence(music.get(), block.data(), 1024);
    }
    vz::renderOrSilence(music.get(), block.data(), 0);
    return 0;
}
