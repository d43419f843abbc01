#include "script/RandomSeed.hpp"

namespace vz {

namespace {

constexpr std::uint32_t firstSeed = 3;
std::uint32_t nextSeed = firstSeed;

}  // namespace

std::uint32_t takeRandomSeed() { return nextSeed++; }

void resetRandomSeeds() { nextSeed = firstSeed; }

}  // namespace vz
