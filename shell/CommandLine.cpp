#include "shell/CommandLine.hpp"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace vz {

namespace {

double parseNumber(const std::string& option, const std::string& text) {
    char* end = nullptr;
    errno = 0;
    double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || errno != 0 || !std::isfinite(value))
        throw UsageError(option + " needs a number, not '" + text + "'");
    return value;
}

}  // namespace

const char* usageText() {
    return "Usage: vzplayer [OPTIONS] [DEMO]\n"
           "Plays a demo: a directory holding config.txt and main.txt, or a .zip archive of one.\n"
           "Without DEMO: the current directory if it holds config.txt, else the bundled sample demo.\n"
           "\n"
           "  --headless         no window and no audio device; time advances by frames (n / fps)\n"
           "  --fps N            frame rate of headless time, 1 to 1000 (default 50)\n"
           "  --until T          end after the first frame whose time is >= T seconds\n"
           "  --shot T=FILE.png  after the first frame whose time is >= T, write the whole\n"
           "                     display as a PNG (repeatable)\n"
           "  --dump-frames DIR  write every frame as DIR/frame-000000.png, frame-000001.png, ...\n"
           "  --audio-out FILE   headless: write the music, rendered in step with the frames,\n"
           "                     as a 44100 Hz stereo 16-bit WAV\n"
           "  --memory-limit MIB the most memory the demo's layers and slot pools may take,\n"
           "                     in MiB (default 4096)\n"
           "  --start T          begin the show at time T (earlier frames run without being shown)\n"
           "  --watch            reload when a file of the demo changes and go back to the same\n"
           "                     time; a failing script is shown and retried on the next change\n"
           "  --check            read every script, key file, material, picture and music file\n"
           "                     the demo names without playing it; report every error found\n"
           "                     (status 1 if any)\n"
           "  --record FILE      headless: a video of the show with its music through ffmpeg\n"
           "                     (any container ffmpeg knows, e.g. show.mp4), at --fps\n"
           "  --pack DIR OUT.zip pack the demo DIR into a zip archive that plays: config.txt\n"
           "                     first, then every file the scripts name; lists files left out\n"
           "  --force            let --pack overwrite OUT.zip\n"
           "  --list-components  print every component keyword with its description and syntax\n"
           "                     (add --markdown for the reference page, and --pictures DIR\n"
           "                     for the pictures of the keywords there)\n"
           "  --help             this text\n"
           "  --version          the player's version\n"
           "\n"
           "Keys: Escape ends the show, Space logs the current time, F11 toggles full screen,\n"
           "P pauses and resumes, period draws one more frame while paused, Left/Right seek one\n"
           "second, Page Up/Page Down ten seconds, Home goes back to the start, F12 writes a\n"
           "screenshot shot-0001.png, ... into the demo directory.\n"
           "The log is written to logfile.txt in the demo directory.\n"
           "Exit status: 0 after a normal end; 1 after a fatal error in a headless run, or when the\n"
           "display cannot be opened; 2 for bad usage.\n";
}

Options parseCommandLine(int argc, const char* const* argv) {
    Options options;
    auto value = [&](int& i, const std::string& option) -> std::string {
        if (i + 1 >= argc) throw UsageError(option + " needs a value");
        return argv[++i];
    };
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg == "--headless") {
            options.headless = true;
        } else if (arg == "--fps") {
            options.fps = parseNumber(arg, value(i, arg));
            if (options.fps < 1 || options.fps > 1000) throw UsageError("--fps must be between 1 and 1000");
        } else if (arg == "--until") {
            options.until = parseNumber(arg, value(i, arg));
        } else if (arg == "--shot") {
            std::string shot = value(i, arg);
            auto eq = shot.find('=');
            if (eq == std::string::npos || eq + 1 == shot.size())
                throw UsageError("--shot takes T=FILE.png, not '" + shot + "'");
            options.shots.push_back({parseNumber(arg, shot.substr(0, eq)), shot.substr(eq + 1)});
        } else if (arg == "--dump-frames") {
            options.dumpFramesDir = value(i, arg);
        } else if (arg == "--audio-out") {
            options.audioOut = value(i, arg);
        } else if (arg == "--memory-limit") {
            const double mib = parseNumber(arg, value(i, arg));
            if (mib < 1 || mib > 1 << 20) throw UsageError("--memory-limit must be between 1 and 1048576 MiB");
            options.memoryLimit = static_cast<std::int64_t>(mib * 1048576.0);
        } else if (arg == "--start") {
            options.start = parseNumber(arg, value(i, arg));
            if (*options.start < 0) throw UsageError("--start needs a time of 0 or more");
        } else if (arg == "--watch") {
            options.watch = true;
        } else if (arg == "--check") {
            options.check = true;
        } else if (arg == "--record") {
            options.record = value(i, arg);
            options.headless = true;
        } else if (arg == "--pack") {
            options.packDir = value(i, arg);
            options.packOut = value(i, arg);
        } else if (arg == "--force") {
            options.force = true;
        } else if (arg == "--list-components") {
            options.listComponents = true;
        } else if (arg == "--markdown") {
            options.markdown = true;
        } else if (arg == "--pictures") {
            options.picturesDir = value(i, arg);
        } else if (arg == "--help" || arg == "-h") {
            options.help = true;
        } else if (arg == "--version") {
            options.version = true;
        } else if (!arg.empty() && arg[0] == '-') {
            throw UsageError("unknown option " + arg);
        } else if (arg.empty()) {
            throw UsageError("the DEMO argument is empty");
        } else if (options.demo.empty()) {
            options.demo = arg;
        } else {
            throw UsageError("only one demo can be played, got '" + options.demo + "' and '" + arg + "'");
        }
    }
    if (!options.audioOut.empty() && !options.headless)
        throw UsageError("--audio-out needs --headless (the music is rendered in step with the frames)");
    return options;
}

}  // namespace vz
