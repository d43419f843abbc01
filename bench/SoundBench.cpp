// Cost of making music, and the quality of the music clock on a real audio thread.
//
// RenderModule: lock-step rendering of a small 4-channel module, one 50 fps frame per
// iteration, against a memcpy of the same bytes.
// DeviceClock/<driver>: three seconds of music on SDL's "dummy" or "disk" driver. The
// clock is read every 0.2 ms; the counters give
//   jitter_us     spread of the readings around a straight line fitted through them
//   rate          the fitted slope (music seconds per wall second)
//   offset_ms     (disk only) reading minus the audible position, mean over every block
//                 the driver writes: a block is heard from the moment it is written
//   offset_sd_ms  its spread
//   cpu_ms_per_s  CPU time of the device thread's fill function per second of sound
#include <benchmark/benchmark.h>

#include <sys/stat.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "shell/sound/SoundSystem.hpp"
#include "tests/shell/TestSong.hpp"

namespace {

namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;

std::string writeSong() {
    const fs::path path = fs::temp_directory_path() / "vz-bench-song.mod";
    const auto bytes = vz::test::makeTestSong();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return path.string();
}

void RenderModule(benchmark::State& state) {
    vz::SoundSystem& sound = vz::SoundSystem::instance();
    sound.initialise(false, vz::AudioMode::lockStep, 50.0);
    sound.playModule(writeSong(), 0, 0.0f);
    for (auto _ : state) {
        sound.endFrame();
        benchmark::DoNotOptimize(sound.lastFrameAudio().data());
    }
    state.SetItemsProcessed(state.iterations() * 882);  // stereo frames
    sound.close();
}
BENCHMARK(RenderModule);

void MemcpyFrameAudio(benchmark::State& state) {
    std::vector<std::int16_t> from(882 * 2, 1), to(882 * 2);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * sizeof(std::int16_t));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 882);
}
BENCHMARK(MemcpyFrameAudio);

struct Sample {
    double wall;      // seconds since the music started
    double reading;   // the clock, offset removed
    long fileFrames;  // frames the disk driver has written (-1: no file)
};

long fileFrames(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 ? static_cast<long>(info.st_size / 4) : -1;
}

// Index of the first stereo frame with sound in a raw 16-bit stereo file.
long firstSoundFrame(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::int16_t frame[2];
    for (long i = 0; in.read(reinterpret_cast<char*>(frame), sizeof frame); ++i)
        if (frame[0] != 0 || frame[1] != 0) return i;
    return -1;
}

void DeviceClock(benchmark::State& state, const char* driver) {
    const std::string raw = (fs::temp_directory_path() / "vz-bench-disk.raw").string();
    const bool disk = std::strcmp(driver, "disk") == 0;
    setenv("SDL_AUDIODRIVER", driver, 1);
    setenv("SDL_DISKAUDIOFILE", raw.c_str(), 1);
    const std::string song = writeSong();
    for (auto _ : state) {
        vz::SoundSystem& sound = vz::SoundSystem::instance();
        sound.initialise(false, vz::AudioMode::device);
        if (!sound.deviceStatistics().deviceOpen) {
            state.SkipWithError("the audio driver did not open");
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(200));  // let the device settle
        sound.playModule(song, 0, 100.0f);
        const auto begin = SteadyClock::now();
        std::vector<Sample> samples;
        while (SteadyClock::now() - begin < std::chrono::seconds(3)) {
            const double reading = sound.currentTime() - 100.0;
            const double wall = std::chrono::duration<double>(SteadyClock::now() - begin).count();
            samples.push_back({wall, reading, disk ? fileFrames(raw) : -1});
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        const auto stats = sound.deviceStatistics();
        sound.close();

        // Straight line through the readings once the music is heard.
        double n = 0, sw = 0, sr = 0, sww = 0, swr = 0;
        for (const Sample& s : samples)
            if (s.reading > 0) {
                n += 1, sw += s.wall, sr += s.reading, sww += s.wall * s.wall, swr += s.wall * s.reading;
            }
        const double slope = (n * swr - sw * sr) / (n * sww - sw * sw);
        const double intercept = (sr - slope * sw) / n;
        double residual = 0;
        for (const Sample& s : samples)
            if (s.reading > 0) residual += std::pow(s.reading - (intercept + slope * s.wall), 2);
        state.counters["jitter_us"] = std::sqrt(residual / n) * 1e6;
        state.counters["rate"] = slope;
        state.counters["cpu_ms_per_s"] = stats.callbackCpuSeconds / stats.secondsHandedOver * 1e3;
        state.counters["buffer_frames"] = stats.bufferFrames;

        if (disk) {
            // A block is heard from the moment it is written: at the first reading that
            // sees the file grow, the audible position is where the file stood before.
            const long musicFrame = firstSoundFrame(raw);
            double sum = 0, squares = 0, count = 0;
            for (std::size_t i = 1; i < samples.size(); ++i) {
                const long before = samples[i - 1].fileFrames;
                if (samples[i].fileFrames == before || before < musicFrame || musicFrame < 0) continue;
                const double offset = samples[i].reading - static_cast<double>(before - musicFrame) / 44100.0;
                sum += offset, squares += offset * offset, count += 1;
            }
            const double mean = sum / count;
            state.counters["offset_ms"] = mean * 1e3;
            state.counters["offset_sd_ms"] = std::sqrt(std::max(0.0, squares / count - mean * mean)) * 1e3;
        }
    }
    std::remove(raw.c_str());
    unsetenv("SDL_AUDIODRIVER");
}
BENCHMARK_CAPTURE(DeviceClock, dummy, "dummy")->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(DeviceClock, disk, "disk")->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace
