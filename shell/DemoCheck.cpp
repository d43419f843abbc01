#include "shell/DemoCheck.hpp"

#include <cstdint>
#include <cstdio>
#include <set>
#include <vector>

#include "assets/File.hpp"
#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/Show.hpp"
#include "shell/Config.hpp"
#include "shell/ShowSession.hpp"
#include "shell/TextOverlay.hpp"

namespace vz {

namespace {

// Reads the show of `config` through: the "screen" layer has its own memory, since
// nothing is shown.
void checkShow(const Config& config, ScriptCheck& check) {
    renewSlotPools(config);
    // Like the player's, the screen takes no slot.
    std::vector<std::uint32_t> band(static_cast<std::size_t>(config.hardwareWidth) *
                                    static_cast<std::size_t>(config.windowHeight));
    Show show;
    show.check = &check;
    Sequencer sequencer("main.txt", show);
    show.repository.add(
        std::make_unique<Symbol>(std::make_unique<Layer32bpp>(config.hardwareWidth, config.windowHeight, band.data())),
        "screen");
    sequencer.checkAll();
    // The frame counter draws with the overlay's font.
    if (config.counters) ImageLoader::LoadLayer32bpp(TextOverlay::fontFile);
}

}  // namespace

std::size_t printErrors(const ScriptCheck& check) {
    // A script named by several composites is read for each: its errors are said once.
    std::set<std::string> said;
    for (const error& e : check.errors) {
        const std::string line = errorLine(e);
        if (said.insert(line).second) std::fprintf(stderr, "%s\n", line.c_str());
    }
    return said.size();
}

namespace {}  // namespace

ScriptCheck checkDemo() {
    ScriptCheck check;
    File::recordOpened(&check.files);
    try {
        const Config config = Config::read("config.txt");
        check.music = !config.nosound;
        if (config.archive) File::switchToArchive(config.archiveName);
        checkShow(config, check);
    } catch (error& e) {
        // Without the configuration or "main.txt" there is nothing further to read.
        check.errors.push_back(e);
    }
    File::recordOpened(nullptr);
    return check;
}

int runCheck() {
    const ScriptCheck check = checkDemo();
    const std::size_t errors = printErrors(check);
    if (errors == 0) {
        std::printf("vzplayer: no errors in %zu files\n", check.files.size());
        return 0;
    }
    std::printf("vzplayer: %zu error%s\n", errors, errors == 1 ? "" : "s");
    return 1;
}

}  // namespace vz
