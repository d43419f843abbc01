#include "shell/Player.hpp"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>

#include "core/Layer.hpp"
#include "core/LayerManager.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "engine3d/EngineSettings.hpp"
#include "script/Repository.hpp"
#include "script/Sequencer.hpp"
#include "script/SequencerFactory.hpp"
#include "script/Show.hpp"
#include "script/TextParser.hpp"
#include "shell/Config.hpp"
#include "shell/TextOverlay.hpp"
#include "shell/display/Display.hpp"
#include "shell/display/PngWriter.hpp"
#include "shell/sound/SoundSystem.hpp"

namespace vz {

namespace {

constexpr const char* consoleTitle = "Vorn and Zelvaine - demo player";

// Frame counter state of the loop (COUNTERS).
struct FrameCounter {
    int frames = 0;
    int framesPerSecond = 0;
    float lastReset = 0.0f;

    void update(float t) {
        if (lastReset + 1.0f < t) {
            framesPerSecond = frames;
            frames = 0;
            lastReset = t;
        }
    }
};

// The frame outputs asked for on the command line: screenshots and frame dumps.
class FrameOutputs {
public:
    explicit FrameOutputs(const Options& options) : options_(options), shotTaken_(options.shots.size(), false) {}

    void afterFrame(const Surface& surface, float t) {
        for (std::size_t i = 0; i < options_.shots.size(); ++i) {
            if (!shotTaken_[i] && t >= options_.shots[i].time) {
                writePng(options_.shots[i].file, surface.pixels(), surface.width(), surface.height());
                shotTaken_[i] = true;
            }
        }
        if (!options_.dumpFramesDir.empty()) {
            char name[32];
            std::snprintf(name, sizeof name, "frame-%06ld.png", frameIndex_);
            writePng((std::filesystem::path(options_.dumpFramesDir) / name).string(), surface.pixels(), surface.width(),
                     surface.height());
        }
        ++frameIndex_;
    }

private:
    const Options& options_;
    std::vector<bool> shotTaken_;
    long frameIndex_ = 0;
};

void logActualTime(float t) {
    // Cut towards zero to tenths, written as a double in the stream's default form.
    double tenths = static_cast<double>(static_cast<long long>(t * 10.0f)) * 0.1;
    logout() << lend << "actualTime = " << tenths << lend;
}

void reportFatal(const std::string& message) {
    const std::string& where = TextParser::lastLocation();
    if (where.empty())
        std::fprintf(stderr, "vzplayer: %s\n", message.c_str());
    else
        std::fprintf(stderr, "vzplayer: %s: %s\n", where.c_str(), message.c_str());
}

}  // namespace

int playDemo(const Options& options, Console& console) {
    // A fresh log.
    logstream& log = logstream::instance();
    log.reset();
    log.open();
    // Configuration.
    Config config = Config::read("config.txt");
    // Memory slots: a screen slot holds an 8-bit layer of the band's size.
    LayerManager::install(
        std::make_unique<LayerManager>(config.smallSlotCount, config.screenSlotCount,
                                       static_cast<std::int64_t>(config.windowHeight) * config.hardwareWidth));

    SoundSystem& sound = SoundSystem::instance();
    int status = 0;
    try {
        // Display objects; the surface stays locked for the whole run.
        Format format;
        Surface surface(config.hardwareWidth, config.hardwareHeight, format);
        std::uint32_t* memory = surface.lock();
        // Archive.
        if (config.archive) File::switchToArchive(config.archiveName);
        // The "screen" layer: a view over the band of the surface.
        auto screen = std::make_unique<Layer32bpp>(
            config.hardwareWidth, config.windowHeight,
            memory + static_cast<std::size_t>(config.topOffset) * static_cast<std::size_t>(config.hardwareWidth));
        auto screenSymbol = std::make_unique<Symbol>(std::move(screen));
        // Black surface.
        std::fill_n(memory, static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(surface.height()), 0u);
        // The timeline script.
        Show show;
        show.settings<EngineSettings>().lowQuality = config.lowQuality;
        Sequencer sequencer("main.txt", show);
        // Scripts refer to the display as "screen".
        show.repository.add(std::move(screenSymbol), "screen");
        // Component listing.
        logout() << lend;
        sequencer.factory().writeList(logout());
        logout() << lend;
        Layer32bpp& screenLayer = show.repository.aquireAs<Layer32bpp>("screen");
        // The text overlay.
        TextOverlay& overlay = TextOverlay::instance();
        overlay.reset();
        // Time and sound.
        sound.initialise(config.nosound, options.headless ? AudioMode::lockStep : AudioMode::device, options.fps);
        if (!options.audioOut.empty()) sound.setAudioOut(options.audioOut);
        // The window.
        console.open(consoleTitle, config.hardwareWidth, config.hardwareHeight, format, 0);
        // Heading of the interpretation.
        logout() << lend << "Interpretation of main.txt : " << lend << lend;

        FrameCounter counter;
        FrameOutputs outputs(options);
        bool keyLatch = false;
        for (;;) {
            if (show.ended) break;
            float t = sound.currentTime();
            if (console.key()) {
                Key key = console.read();
                if (key == escapeKey) break;
                if (!keyLatch && key == spaceKey) logActualTime(t);
                keyLatch = true;
            } else {
                keyLatch = false;
            }
            overlay.clear();
            sequencer.run(t);
            ++counter.frames;
            if (config.counters) {
                counter.update(t);
                overlay.write(std::to_string(static_cast<int>(t)) + "  " + std::to_string(counter.framesPerSecond) +
                              " FPS");
                overlay.draw(screenLayer);
            }
            surface.copy(console);
            console.update();
            outputs.afterFrame(surface, t);
            sound.endFrame();
            if (options.until && t >= *options.until) break;
        }
        // Shut-down.
        surface.unlock();
        console.close();
        // The sequencer dies when this scope ends; "screen" goes with the repository.
    } catch (const DisplayError& e) {
        e.report();
        status = 1;
    } catch (const error& e) {
        logout() << lend << dashLine << lend << "exeption : " << e.message() << lend;
        reportFatal(e.message());
        status = options.headless ? 1 : 0;
    }
    // Sound, then the log.
    if (!config.nosound) sound.close();
    log.close();
    return status;
}

}  // namespace vz
