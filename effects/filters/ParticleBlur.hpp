#pragma once
// Pixels bursting outwards: each target pixel takes the source pixel pulled towards the
// centre of the layer by a share of the intensity that depends on the pixel's noise
// value (sixteen speeds). As the intensity grows, the picture around the centre is
// scattered outwards like particles; a noise table kept from frame to frame makes the
// particles move coherently.
#include <cstdint>

namespace vz {

constexpr int particleSpeeds = 16;

// intensity is held in 0-256; 256 pulls the fastest particles' samples to the centre.
// noise holds noiseTableSize bytes; columns and rows are room for particleSpeeds * width
// and particleSpeeds * height entries. dst and src are distinct width x height pictures.
void particleBlur(std::uint32_t* dst, const std::uint32_t* src, int width, int height, const std::uint8_t* noise,
                  int intensity, int* columns, int* rows);

}  // namespace vz
