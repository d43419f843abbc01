// Key files on arbitrary text, read as each of the five kinds, and the tracks evaluated
// at times inside, around and far outside their loop, not-a-number included.
#include <cstddef>
#include <cstdint>
#include <limits>

#include "FuzzSupport.hpp"
#include "core/error.hpp"
#include "script/Keytrack.hpp"

namespace {

constexpr float times[] = {0.0f,
                           0.3f,
                           1.0f,
                           2.5f,
                           7.77f,
                           -0.5f,
                           -13.0f,
                           1e4f,
                           -1e6f,
                           3e7f,
                           1e30f,
                           -1e30f,
                           1e-30f,
                           -0.0f,
                           std::numeric_limits<float>::infinity(),
                           -std::numeric_limits<float>::infinity(),
                           std::numeric_limits<float>::quiet_NaN()};

template <class Track>
void play() {
    try {
        auto track = Track::load("k.txt");
        for (float t : times) track->sample(t);
        for (float t = 0.0f; t < 3.0f; t += 0.05f) track->sample(t);  // steadily, through the cache
        for (int kind : {0, 1, 2, 3, 7}) {
            track->interpolation = kind;
            track->sample(0.5f);
            track->sample(-2.25f);
        }
    } catch (const vz::error&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::fuzz::MemoryFiles files({{"k.txt", {data, data + size}}});
    play<vz::KeytrackInt>();
    play<vz::KeytrackFloat>();
    play<vz::KeytrackVector2>();
    play<vz::KeytrackVector3>();
    play<vz::KeytrackSprite>();
    return 0;
}
