#include "shell/Player.hpp"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>

#include "assets/File.hpp"
#include "core/Layer.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/RandomSeed.hpp"
#include "script/SequencerFactory.hpp"
#include "shell/Config.hpp"
#include "shell/FileWatcher.hpp"
#include "shell/Progress.hpp"
#include "shell/ShowSession.hpp"
#include "shell/TextOverlay.hpp"
#include "shell/VideoRecorder.hpp"
#include "shell/display/Display.hpp"
#include "shell/display/PngWriter.hpp"
#include "shell/sound/SoundSystem.hpp"

namespace vz {

namespace {

constexpr const char* consoleTitle = "Vorn and Zelvaine - demo player";
constexpr int idleMilliseconds = 15;  // a paused or broken show looks for input this often

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

// The frame outputs asked for on the command line: screenshots, frame dumps, a video.
class FrameOutputs {
public:
    FrameOutputs(const Options& options, VideoRecorder* video)
        : options_(options), shotTaken_(options.shots.size(), false), video_(video) {}

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
        if (video_) video_->frame(surface.pixels());
        ++frameIndex_;
    }

private:
    const Options& options_;
    std::vector<bool> shotTaken_;
    VideoRecorder* video_;
    long frameIndex_ = 0;
};

// F12: the display as a PNG in the current directory, under the first free name.
void writeScreenshot(const Surface& surface) {
    for (int n = 1; n < 100000; ++n) {
        char name[32];
        std::snprintf(name, sizeof name, "shot-%04d.png", n);
        if (std::filesystem::exists(name)) continue;
        writePng(name, surface.pixels(), surface.width(), surface.height());
        return;
    }
}

// The demo's directory; for a zipped demo, the one that holds the archive.
std::string watchedDirectory() {
    if (!File::archiveMode()) return ".";
    const std::string parent = std::filesystem::path(File::archiveName()).parent_path().string();
    return parent.empty() ? "." : parent;
}

bool plain(const Key& key) { return !key.alt && !key.control; }

// Where a seek key goes from time t; nothing for other keys.
std::optional<float> seekTarget(const Key& key, float t) {
    if (!plain(key)) return std::nullopt;
    switch (key.code) {
    case keyLeft: return std::max(0.0f, t - 1.0f);
    case keyRight: return t + 1.0f;
    case keyPageDown: return std::max(0.0f, t - 10.0f);
    case keyPageUp: return t + 10.0f;
    case keyHome: return 0.0f;
    default: return std::nullopt;
    }
}

// The frame loop and what authors do to it: pause, step, seek, screenshots, reload.
class FrameLoop {
public:
    FrameLoop(const Options& options, const Config& config, Console& console, Surface& surface, std::uint32_t* memory,
              std::unique_ptr<ShowSession> session, VideoRecorder* video)
        : options_(options),
          config_(config),
          console_(console),
          surface_(surface),
          memory_(memory),
          session_(std::move(session)),
          outputs_(options, video),
          progress_(options.until,
                    !options.record.empty() || !options.dumpFramesDir.empty() || !options.audioOut.empty()) {
        if (options.watch) watcher_ = std::make_unique<FileWatcher>(watchedDirectory());
    }

    void run() {
        if (options_.start) guarded([&] { seek(static_cast<float>(*options_.start), 0.0f); });
        bool keyLatch = false;
        for (;;) {
            if (session_ && session_->show.ended) break;
            float t = sound_.currentTime();
            if (watcher_ && (changed_ || watcher_->changed())) {
                changed_ = false;
                reload(t);
                continue;
            }
            std::optional<Key> key;
            if (console_.key()) {
                key = console_.read();
                if (*key == escapeKey) break;
                if (!keyLatch && *key == spaceKey) logActualTime(t);
                keyLatch = true;
            } else {
                keyLatch = false;
            }
            if (key && authorKey(*key, t)) continue;
            if (paused_ || !session_) {
                idle();
                continue;
            }
            guarded([&] { drawFrame(t); });
            if (!session_) continue;
            present(t);
            if (options_.until && t >= *options_.until) break;
        }
        progress_.finish();
    }

private:
    // One frame of the show at time t, without presenting it.
    void drawFrame(float t) {
        overlay_.clear();
        session_->sequencer.run(t);
        ++counter_.frames;
        if (config_.counters) {
            counter_.update(t);
            overlay_.write(std::to_string(static_cast<int>(t)) + "  " + std::to_string(counter_.framesPerSecond) +
                           " FPS");
            overlay_.draw(session_->screen);
        }
    }

    void present(float t) {
        surface_.copy(console_);
        console_.update();
        outputs_.afterFrame(surface_, t);
        sound_.endFrame();
        progress_.frame(t);
    }

    // Pause, step, seek and screenshot keys; true when the key was one of them.
    bool authorKey(const Key& key, float t) {
        if (!plain(key)) return false;
        // A script that failed under --watch has nothing to pause or step until it is fixed.
        if ((key.code == 'p' || key.code == '.') && !session_) return true;
        if (key.code == 'p') {
            paused_ = !paused_;
            if (paused_) {
                sound_.hold();
                showPaused();
            } else {
                sound_.release();
            }
            return true;
        }
        if (key.code == '.') {
            if (paused_) step(t);
            return true;
        }
        if (key.code == keyF12) {
            writeScreenshot(surface_);
            return true;
        }
        if (auto target = seekTarget(key, t)) {
            guarded([&] { seek(*target, t); });
            return true;
        }
        return false;
    }

    // Paused: one frame of the held time is drawn and shown, and the clock moves one
    // frame on.
    void step(float t) {
        guarded([&] {
            drawFrame(t);
            present(t);
        });
        if (session_) showPaused();
    }

    // Runs every frame up to `target` at the frame rate without presenting, after
    // starting the show afresh when the target lies behind `now`.
    void seek(float target, float now) {
        sound_.hold();
        if (target < now || !session_) restart();
        for (;;) {
            if (session_->show.ended) break;
            const float t = sound_.currentTime();
            if (t >= target) break;
            drawFrame(t);
            sound_.endFrame();
        }
        if (paused_) {
            step(sound_.currentTime());
        } else {
            sound_.release();
        }
    }

    void restart() {
        session_.reset();
        renewSlotPools(config_);
        sound_.restartClock();
        resetRandomSeeds();
        counter_ = FrameCounter{};
        session_ = std::make_unique<ShowSession>(config_, memory_);
    }

    // The demo's files changed: the show starts again and returns to where it was.
    void reload(float t) {
        broken_.clear();
        session_.reset();
        guarded([&] { seek(t, t); });
    }

    // Runs `action`; with --watch an error leaves the show stopped and shown instead of
    // ending the player, until the next change of the demo's files.
    template <class Action>
    void guarded(Action action) {
        if (!watcher_) {
            action();
            return;
        }
        try {
            action();
        } catch (const error& e) {
            logout() << lend << dashLine << lend << "exeption : " << e.message() << lend;
            std::fprintf(stderr, "%s\n", errorLine(e).c_str());
            broken_ = (e.where().empty() ? "" : e.where() + " ") + e.message();
            session_.reset();
            sound_.hold();
            showBroken();
        }
    }

    // Nothing to draw: keep the window alive and wait for input or a change of files.
    void idle() {
        console_.update();
        if (watcher_ && !session_) {
            changed_ = watcher_->waitForChange(idleMilliseconds);
            return;
        }
        console_.wait(idleMilliseconds);
    }

    // The held frame with "PAUSED" over it; the surface itself stays as the show drew
    // it, since effects may read the screen in the next frame.
    void showPaused() { showOverlaid({"PAUSED"}); }

    // The error of a script that failed under --watch, in the font's capitals.
    void showBroken() {
        std::vector<std::string> lines;
        std::string text = broken_;
        for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        for (std::size_t at = 0; at < text.size() && lines.size() < 8; at += 20) lines.push_back(text.substr(at, 20));
        std::fill_n(memory_, static_cast<std::size_t>(surface_.width()) * surface_.height(), 0u);
        showOverlaid(lines);
    }

    void showOverlaid(const std::vector<std::string>& lines) {
        const std::size_t top = static_cast<std::size_t>(config_.topOffset) * config_.hardwareWidth;
        const std::size_t band = static_cast<std::size_t>(config_.windowHeight) * config_.hardwareWidth;
        held_.assign(memory_ + top, memory_ + top + band);
        if (fontAvailable()) {
            Layer32bpp view(config_.hardwareWidth, config_.windowHeight, memory_ + top);
            overlay_.clear();
            for (const auto& line : lines) {
                overlay_.write(line);
                overlay_.newLine();
            }
            overlay_.draw(view);
        }
        surface_.copy(console_);
        console_.update();
        std::copy(held_.begin(), held_.end(), memory_ + top);
    }

    static bool fontAvailable() {
        File font;
        const bool found = font.open(TextOverlay::fontFile);
        font.close();
        return found;
    }

    const Options& options_;
    const Config& config_;
    Console& console_;
    Surface& surface_;
    std::uint32_t* memory_;
    std::unique_ptr<ShowSession> session_;  // null while a reloaded script is broken
    SoundSystem& sound_ = SoundSystem::instance();
    TextOverlay& overlay_ = TextOverlay::instance();
    FrameCounter counter_;
    FrameOutputs outputs_;
    Progress progress_;
    std::unique_ptr<FileWatcher> watcher_;
    bool paused_ = false;
    bool changed_ = false;  // the watcher saw a change while the loop waited
    std::string broken_;
    std::vector<std::uint32_t> held_;
};

}  // namespace

void logActualTime(float t) {
    const double tenths = std::trunc(static_cast<double>(t) * 10.0) * 0.1;
    logout() << lend << "actualTime = " << tenths << lend;
}

int playDemo(const Options& options, Console& console) {
    // A fresh log.
    logstream& log = logstream::instance();
    log.reset();
    log.open();
    // Configuration.
    Config config = Config::read("config.txt");
    // Memory slots: a screen slot holds an 8-bit layer of the band's size.
    renewSlotPools(config);

    SoundSystem& sound = SoundSystem::instance();
    std::unique_ptr<VideoRecorder> video;
    int status = 0;
    try {
        // Display objects; the surface stays locked for the whole run.
        Format format;
        Surface surface(config.hardwareWidth, config.hardwareHeight, format);
        std::uint32_t* memory = surface.lock();
        // Archive.
        if (config.archive) File::switchToArchive(config.archiveName);
        // The timeline script, with "screen" over the band of the black surface.
        auto session = std::make_unique<ShowSession>(config, memory);
        // Component listing.
        logout() << lend;
        session->sequencer.factory().writeList(logout());
        logout() << lend;
        // The text overlay.
        TextOverlay::instance().reset();
        // Time and sound.
        sound.initialise(config.nosound, options.headless ? AudioMode::lockStep : AudioMode::device, options.fps);
        if (!options.record.empty()) {
            video = std::make_unique<VideoRecorder>(options.record, surface.width(), surface.height(), options.fps);
            sound.setAudioOut(options.audioOut.empty() ? video->audioFile() : options.audioOut);
        } else if (!options.audioOut.empty()) {
            sound.setAudioOut(options.audioOut);
        }
        // The window.
        console.open(consoleTitle, config.hardwareWidth, config.hardwareHeight, format, 0);
        // Heading of the interpretation.
        logout() << lend << "Interpretation of main.txt : " << lend << lend;

        FrameLoop(options, config, console, surface, memory, std::move(session), video.get()).run();
        // Shut-down.
        surface.unlock();
        console.close();
        // The sequencer dies with the loop; "screen" goes with the repository.
    } catch (const DisplayError& e) {
        e.report();
        status = 1;
    } catch (const error& e) {
        logout() << lend << dashLine << lend << "exeption : " << e.message() << lend;
        std::fprintf(stderr, "%s\n", errorLine(e).c_str());
        status = options.headless ? 1 : 0;
    }
    // Sound, then the log.
    if (!config.nosound) sound.close();
    log.close();
    if (video) {
        // The music file is complete once the sound is closed.
        sound.close();
        if (!video->finish(status == 0 ? (options.audioOut.empty() ? video->audioFile() : options.audioOut) : ""))
            status = 1;
    }
    return status;
}

}  // namespace vz
