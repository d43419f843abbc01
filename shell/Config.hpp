#pragma once
// The demo's "config.txt": display size, the band effects draw on, slot pool sizes and
// four switches. Read once at start-up through the script tokenizer.
#include <string>

namespace vz {

struct Config {
    int hardwareWidth = 0;
    int hardwareHeight = 0;
    int windowHeight = 0;
    int topOffset = 0;
    int smallSlotCount = 0;
    int screenSlotCount = 0;
    bool counters = false;
    bool nosound = false;
    bool lowQuality = false;
    bool archive = false;
    std::string archiveName;

    // Reads the file and writes the "Hardware resolution : " and "Window height : " lines.
    // Throws the parser's errors for a missing file or missing values, and an error naming
    // the file for sizes the player cannot show.
    static Config read(const std::string& fileName);
};

}  // namespace vz
