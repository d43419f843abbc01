// vzplayer: plays a script-driven demo in a window, or headless for tests and captures.
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "assets/File.hpp"
#include "core/MemoryBudget.hpp"
#include "core/error.hpp"
#include "script/SequencerFactory.hpp"
#include "shell/CommandLine.hpp"
#include "shell/DemoCheck.hpp"
#include "shell/Player.hpp"
#include "shell/VideoRecorder.hpp"
#include "shell/display/Display.hpp"

namespace fs = std::filesystem;

namespace {

bool isZip(const fs::path& path) {
    std::string ext = path.extension().string();
    for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ext == ".zip";
}

// The bundled sample: next to the build tree it was configured from, or installed
// beside the executable.
fs::path sampleDemo(const char* argv0) {
    fs::path built = VZ_SAMPLE_DEMO;
    if (fs::exists(built / "config.txt")) return built;
    std::error_code ec;
    fs::path exe = fs::canonical(argv0, ec);
    return exe.parent_path().parent_path() / "demos" / "sample";
}

// Output paths given on the command line are relative to where the player was started,
// not to the demo directory it changes into.
void makeOutputsAbsolute(vz::Options& options) {
    for (auto& shot : options.shots) shot.file = fs::absolute(shot.file).string();
    if (!options.dumpFramesDir.empty()) options.dumpFramesDir = fs::absolute(options.dumpFramesDir).string();
    if (!options.audioOut.empty()) options.audioOut = fs::absolute(options.audioOut).string();
    if (!options.record.empty()) options.record = fs::absolute(options.record).string();
}

// Chooses the demo and enters it: a directory becomes the working directory; a zip
// archive serves every file, config.txt included, and the log stays where we are.
void enterDemo(const vz::Options& options, const char* argv0) {
    fs::path demo = options.demo;
    if (demo.empty()) demo = fs::exists("config.txt") ? fs::current_path() : sampleDemo(argv0);
    if (fs::is_regular_file(demo) && isZip(demo)) {
        vz::File::switchToArchive(fs::absolute(demo).string());
        return;
    }
    if (!fs::is_directory(demo)) throw vz::UsageError("no demo at " + demo.string());
    fs::current_path(demo);
}

}  // namespace

int main(int argc, char** argv) {
    vz::Options options;
    try {
        options = vz::parseCommandLine(argc, argv);
        if (options.help) {
            std::fputs(vz::usageText(), stdout);
            return 0;
        }
        if (options.version) {
            std::puts("vzplayer " VZ_VERSION);
            return 0;
        }
        if (options.listComponents) {
            if (options.markdown)
                vz::writeComponentReferenceMarkdown(std::cout, options.picturesDir);
            else
                vz::writeComponentList(std::cout);
            return 0;
        }
        vz::MemoryBudget::setLimit(options.memoryLimit);
        if (!options.packDir.empty()) return vz::packDemo(options.packDir, options.packOut, options.force);
        if (!options.record.empty() && vz::VideoRecorder::findProgram("ffmpeg").empty()) {
            std::fputs("vzplayer: --record needs the program ffmpeg, which is not on PATH\n", stderr);
            return 1;
        }
        makeOutputsAbsolute(options);
        if (!options.dumpFramesDir.empty()) fs::create_directories(options.dumpFramesDir);
        enterDemo(options, argv[0]);
        if (options.check) return vz::runCheck();
    } catch (const vz::UsageError& e) {
        std::fprintf(stderr, "vzplayer: %s\n%s", e.what(), vz::usageText());
        return 2;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vzplayer: %s\n", e.what());
        return 2;
    }

    auto console = options.headless ? vz::makeHeadlessConsole() : vz::makeWindowConsole();
    try {
        return vz::playDemo(options, *console);
    } catch (const vz::error& e) {
        // Failures before the show starts (log, configuration) end the process.
        std::fprintf(stderr, "%s\n", vz::errorLine(e).c_str());
        return 1;
    } catch (const std::exception& e) {
        // Failures before the show starts (log, configuration) end the process.
        std::fprintf(stderr, "vzplayer: %s\n", e.what());
        return 1;
    }
}
