// Tracker modules through libopenmpt.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <ostream>
#include <streambuf>

#include <libopenmpt/libopenmpt.hpp>

#include "shell/sound/MusicDecoder.hpp"
#include "shell/sound/SampleRate.hpp"

namespace vz {

namespace {

// libopenmpt writes its loader notes to a stream; the player keeps them out of sight.
class NullBuffer : public std::streambuf {
protected:
    int overflow(int c) override { return c; }
};

// The master volume 0-255 scales the amplitude linearly: volume v is a gain of v / 255,
// given to libopenmpt in millibels (2000 × log10(v / 255); 255 is 0 mB, 1 is about
// -4813 mB). Volume 0 cannot be expressed in millibels, so it is rendered as silence.
int volumeToMillibel(int volume) { return static_cast<int>(std::lround(2000.0 * std::log10(volume / 255.0))); }

class ModuleDecoder : public MusicDecoder {
public:
    ModuleDecoder(std::unique_ptr<openmpt::module> module)
        : module_(std::move(module)), start_(module_->get_position_seconds()) {}

    std::size_t render(std::int16_t* out, std::size_t frames) override {
        const int volume = wantedVolume_.load(std::memory_order_relaxed);
        if (volume != appliedVolume_ && volume > 0)
            module_->set_render_param(openmpt::module::RENDER_MASTERGAIN_MILLIBEL, volumeToMillibel(volume));
        appliedVolume_ = volume;
        std::size_t done = 0;
        while (done < frames) {
            std::size_t got = module_->read_interleaved_stereo(sampleRate, frames - done, out + 2 * done);
            if (got == 0) break;
            done += got;
        }
        // A silent module still advances: the music goes on under the fade.
        if (volume == 0) std::memset(out, 0, done * 2 * sizeof(std::int16_t));
        return done;
    }

    void setVolume(int volume) override { wantedVolume_.store(std::clamp(volume, 0, 255), std::memory_order_relaxed); }

    void seek(double seconds) override {
        // The module loops, so a position past its end comes round to its start again.
        double target = start_ + std::max(seconds, 0.0);
        const double length = module_->get_duration_seconds();
        if (length > 0.0) target = std::fmod(target, length);
        module_->set_position_seconds(target);
    }

private:
    std::unique_ptr<openmpt::module> module_;
    double start_;  // where the module was opened to start, in seconds
    std::atomic<int> wantedVolume_{255};
    int appliedVolume_ = 255;  // touched only by the rendering thread
};

}  // namespace

std::unique_ptr<MusicDecoder> openModule(const std::vector<std::uint8_t>& bytes, int order, std::string& why) {
    NullBuffer nothing;
    std::ostream quiet(&nothing);
    try {
        auto module = std::make_unique<openmpt::module>(bytes, quiet);
        // Demo music loops like a tracker does; its clock runs on regardless.
        module->set_repeat_count(-1);
        // An order outside the song leaves the module at its start.
        if (order > 0 && order < module->get_num_orders()) module->set_position_order_row(order, 0);
        return std::make_unique<ModuleDecoder>(std::move(module));
    } catch (const std::exception& e) {
        why = e.what();
        return nullptr;
    }
}

}  // namespace vz
