#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace vz {

// The bytes of a music file: from the disk when it is there, else, in archive mode,
// from the archive, so that a zipped demo plays with its music. False when neither has it,
// with the reason in `why`.
bool readMusicFile(const std::string& name, std::vector<std::uint8_t>& bytes, std::string& why);

}  // namespace vz
