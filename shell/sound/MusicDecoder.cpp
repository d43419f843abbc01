#include "shell/sound/MusicDecoder.hpp"

#include <cstring>

namespace vz {

std::size_t renderOrSilence(MusicDecoder* music, std::int16_t* out, std::size_t frames) {
    std::size_t done = music && frames > 0 ? music->render(out, frames) : 0;
    if (done < frames) std::memset(out + 2 * done, 0, (frames - done) * 2 * sizeof(std::int16_t));
    return done;
}

}  // namespace vz
