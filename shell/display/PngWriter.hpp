#pragma once
// Writes a frame (pixels 0x00RRGGBB, rows without gaps) as an RGB PNG.
#include <cstdint>
#include <string>

namespace vz {

// Throws error naming the file when it cannot be written.
void writePng(const std::string& fileName, const std::uint32_t* pixels, int width, int height);

}  // namespace vz
