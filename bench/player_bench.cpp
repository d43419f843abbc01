// The whole player, headless, on the bundled sample demo: frames per second over the
// show, the slowest second, and the time from start to the first presented frame. The
// demo is played at 640 x 480 as shipped and again at 1920 x 1080 with its band-sized
// files remade for the 1920 x 900 band.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "script/Sequencer.hpp"
#include "shell/Player.hpp"
#include "shell/display/headless/HeadlessConsole.hpp"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Records when each frame is presented.
class TimedConsole : public vz::HeadlessConsole {
public:
    void update() override {
        vz::HeadlessConsole::update();
        presented.push_back(Clock::now());
    }
    std::vector<Clock::time_point> presented;
};

// A copy of the sample demo for a `width` x `height` display, with the band scaled like
// the shipped one (400 of 480 rows, centred) and the band-sized pictures and tables remade
// at the band's size by the asset generator. 40 screen slots, as shipped: a slot holds one
// band-sized 8-bit layer. Empty on failure.
fs::path demoAt(int width, int height) {
    fs::path source = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";
    if (width == 640 && height == 480) return source;
    fs::path copy = fs::temp_directory_path() / ("vz-sample-" + std::to_string(width));
    fs::remove_all(copy);
    fs::copy(source, copy, fs::copy_options::recursive);
    int band = height * 400 / 480;
    std::string command = std::string("'") + VZ_ASSET_GENERATOR + "' --band " + std::to_string(width) + "x" +
                          std::to_string(band) + " '" + copy.string() + "' > /dev/null";
    if (std::system(command.c_str()) != 0) return {};
    std::ofstream(copy / "config.txt") << width << "\n"
                                       << height << "\n"
                                       << band << "\n"
                                       << (height - band) / 2 << "\n64\n40\n";
    return copy;
}

void playSample(benchmark::State& state) {
    int width = static_cast<int>(state.range(0));
    int height = static_cast<int>(state.range(1));
    fs::path previous = fs::current_path();
    fs::path demo = demoAt(width, height);
    if (demo.empty()) {
        state.SkipWithError("the asset generator failed");
        return;
    }
    const double fps = 50.0;
    for (auto _ : state) {
        fs::current_path(demo);
        vz::Options options;
        options.headless = true;
        options.fps = fps;
        TimedConsole console;
        auto start = Clock::now();
        int status = vz::playDemo(options, console);
        auto end = Clock::now();
        fs::current_path(previous);
        if (status != 0 || console.presented.empty()) {
            state.SkipWithError("the sample demo did not play to its end");
            return;
        }
        // Frames per second of show time: frame n belongs to second n / fps.
        std::map<long, std::pair<Clock::time_point, Clock::time_point>> seconds;
        for (std::size_t n = 0; n < console.presented.size(); ++n) {
            long second = static_cast<long>(n / fps);
            auto begin = n == 0 ? start : console.presented[n - 1];
            auto& span = seconds.try_emplace(second, begin, begin).first->second;
            span.second = console.presented[n];
        }
        double slowest = 1e300;
        for (const auto& [second, span] : seconds) {
            double wall = std::chrono::duration<double>(span.second - span.first).count();
            double framesThere = std::min(fps, static_cast<double>(console.presented.size()) - second * fps);
            if (framesThere >= fps && wall > 0) slowest = std::min(slowest, framesThere / wall);
        }
        double total = std::chrono::duration<double>(end - start).count();
        state.counters["frames"] = static_cast<double>(console.presented.size());
        state.counters["fps"] = static_cast<double>(console.presented.size()) / total;
        state.counters["slowest_second_fps"] = slowest;
        state.counters["startup_ms"] =
            std::chrono::duration<double, std::milli>(console.presented.front() - start).count();
        state.SetItemsProcessed(static_cast<std::int64_t>(console.presented.size()) * width * height);
    }
}

BENCHMARK(playSample)->Args({640, 480})->Args({1920, 1080})->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
