#pragma once
// The player's command line: which demo to play and how (window or headless, frame
// rate, end time, screenshots, frame dumps, audio capture), or a listing of components.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/MemoryBudget.hpp"

namespace vz {

struct Shot {
    double time = 0;
    std::string file;
};

struct Options {
    std::string demo;  // directory, .zip archive, or empty (none given)
    bool headless = false;
    double fps = 50.0;
    std::optional<double> until;
    std::vector<Shot> shots;
    std::string dumpFramesDir;
    std::string audioOut;
    std::int64_t memoryLimit = MemoryBudget::defaultLimit;  // bytes
    std::optional<double> start;                            // begin the show at this time (fast-forwarded)
    bool watch = false;                                     // reload when the demo's files change
    bool check = false;                                     // read every script without playing, report errors
    std::string record;                                     // headless: a video of the show through ffmpeg
    std::string packDir;                                    // --pack DIR OUT.zip
    std::string packOut;
    bool force = false;  // --pack may overwrite OUT.zip
    bool listComponents = false;
    bool markdown = false;    // with --list-components: the reference as Markdown
    std::string picturesDir;  // with --markdown: where the keywords' pictures are
    bool help = false;
    bool version = false;
};

// Bad usage: the message says what is wrong; the program exits with status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

Options parseCommandLine(int argc, const char* const* argv);
const char* usageText();

}  // namespace vz
