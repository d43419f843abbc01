#include "effects/filters/Noise.hpp"

namespace vz {

std::vector<std::uint8_t> makeNoiseTable(NoiseGenerator& generator) {
    std::vector<std::uint8_t> table(noiseTableSize);
    for (auto& entry : table) entry = generator.nextByte();
    return table;
}

}  // namespace vz
